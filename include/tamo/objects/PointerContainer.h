// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>

namespace Vb {

/// Owns the objects that a standard vector of pointers points to: what it removes, it deletes.
///
/// `C` is `std::vector<T*>`; a slot may be null. Two habits of the class are deliberate. Copying copies the pointers,
/// not the objects, so of two containers that share objects only one may be destroyed. `resize` deletes every object
/// but keeps the surviving slots as they are, so clear the container first or overwrite those slots at once. Indices
/// and iterators are checked by the standard library's assertions only. Making slots may throw `std::bad_alloc`, and
/// then leaves the container as it was: `push_back` takes ownership only once it has returned.
template <typename C> class PointerContainer {
  public:
    using value_type = typename C::value_type;
    using iterator = typename C::iterator;
    using const_iterator = typename C::const_iterator;

    /// Makes `n` null slots. Throws `std::length_error` for a negative `n`.
    PointerContainer(int n = 0);
    /// Copies the pointers: both containers then refer to the same objects.
    PointerContainer(PointerContainer const& other);
    /// Copies the pointers; the objects that this container held are not deleted.
    PointerContainer& operator=(PointerContainer const& other);
    /// Deletes every object, first to last.
    ~PointerContainer();

    [[nodiscard]] unsigned int size() const;
    /// Returns the slot itself, so that a pointer can be stored into it; what the slot held is not deleted.
    [[nodiscard]] value_type& operator[](std::size_t i);
    [[nodiscard]] value_type const& operator[](std::size_t i) const;
    [[nodiscard]] iterator begin();
    [[nodiscard]] iterator end();
    [[nodiscard]] const_iterator begin() const;
    [[nodiscard]] const_iterator end() const;

    /// Appends the pointer and takes ownership of its object.
    void push_back(value_type const& pointer);
    void reserve(unsigned int n);
    /// Deletes the object at `position` and removes its slot; returns an iterator to the slot that follows.
    iterator erase(iterator position);
    /// Deletes the objects in [first, last) and removes their slots; returns `first`.
    iterator erase(iterator first, iterator last);
    /// Deletes every object and removes all slots; the capacity stays.
    void clear();
    /// Deletes every object of the container, then makes `n` slots. New slots are null; slots that were there before
    /// still point to the deleted objects. Where the slots cannot be allocated, nothing is deleted.
    void resize(unsigned int n);

  private:
    using Delete = std::default_delete<std::remove_pointer_t<value_type>>;

    C _pointers;
};

// Defined outside the class: an explicit instantiation then lives in the library alone, where indices are checked,
// however the caller's own code is compiled.

template <typename C> PointerContainer<C>::PointerContainer(int n) : _pointers(static_cast<std::size_t>(n)) {}

template <typename C>
PointerContainer<C>::PointerContainer(PointerContainer const& other) : _pointers(other._pointers) {}

template <typename C> PointerContainer<C>& PointerContainer<C>::operator=(PointerContainer const& other) {
    _pointers = other._pointers;
    return *this;
}

template <typename C> PointerContainer<C>::~PointerContainer() { clear(); }

template <typename C> unsigned int PointerContainer<C>::size() const {
    return static_cast<unsigned int>(_pointers.size());
}

template <typename C> typename PointerContainer<C>::value_type& PointerContainer<C>::operator[](std::size_t i) {
    return _pointers[i];
}

template <typename C>
typename PointerContainer<C>::value_type const& PointerContainer<C>::operator[](std::size_t i) const {
    return _pointers[i];
}

template <typename C> typename PointerContainer<C>::iterator PointerContainer<C>::begin() { return _pointers.begin(); }

template <typename C> typename PointerContainer<C>::iterator PointerContainer<C>::end() { return _pointers.end(); }

template <typename C> typename PointerContainer<C>::const_iterator PointerContainer<C>::begin() const {
    return _pointers.begin();
}

template <typename C> typename PointerContainer<C>::const_iterator PointerContainer<C>::end() const {
    return _pointers.end();
}

template <typename C> void PointerContainer<C>::push_back(value_type const& pointer) { _pointers.push_back(pointer); }

template <typename C> void PointerContainer<C>::reserve(unsigned int n) { _pointers.reserve(n); }

template <typename C> typename PointerContainer<C>::iterator PointerContainer<C>::erase(iterator position) {
    delete *position;
    return _pointers.erase(position);
}

template <typename C> typename PointerContainer<C>::iterator PointerContainer<C>::erase(iterator first, iterator last) {
    std::for_each(first, last, Delete());
    return _pointers.erase(first, last);
}

template <typename C> void PointerContainer<C>::clear() { erase(begin(), end()); }

template <typename C> void PointerContainer<C>::resize(unsigned int n) {
    // Only the allocation can fail, so it comes before the deletions.
    _pointers.reserve(n);
    std::for_each(begin(), end(), Delete());
    _pointers.resize(n);
}

} // namespace Vb
