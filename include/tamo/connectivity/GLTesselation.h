// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>

#include <initializer_list>
#include <memory>
#include <vector>

/// Lists the corners of one polyhedron, their convex hull, by corner numbers 0 to 7 of the unit cell.
///
/// Corner i lies at (bit 0, bit 1, bit 2 of i).
class GLPolyh : private std::vector<unsigned int> {
    using Corners = std::vector<unsigned int>;

  public:
    using Corners::const_iterator;
    using Corners::iterator;
    using Corners::size_type;
    using Corners::value_type;

    /// Makes a placeholder: a tetrahedron whose four corners are all corner 0.
    GLPolyh() : Corners(4, 0U) {}
    GLPolyh(std::initializer_list<unsigned int> corners) : Corners(corners) {}

    using Corners::operator[];
    using Corners::begin;
    using Corners::clear;
    using Corners::empty;
    using Corners::end;
    using Corners::push_back;
    using Corners::resize;
    using Corners::size;

    friend bool operator==(GLPolyh const& a, GLPolyh const& b) {
        return static_cast<Corners const&>(a) == static_cast<Corners const&>(b);
    }
    friend bool operator!=(GLPolyh const& a, GLPolyh const& b) { return !(a == b); }
};

/// Holds a subdivision of the unit cell into polyhedra, in a fixed order.
///
/// Copies are deep. Indices are not checked except by `setPolyh`.
class TAMO_EXPORT GLTesselation {
  public:
    /// Makes `n` placeholders, as `resize` does.
    GLTesselation(unsigned int n = 0);
    GLTesselation(GLTesselation const& other);
    GLTesselation& operator=(GLTesselation const& other);
    ~GLTesselation();

    /// Discards all polyhedra and makes `n` placeholders. Returns false where the subdivision stays empty: for n = 0,
    /// and after "GLTesselations alloc error" on standard error where the polyhedra cannot be allocated. Never throws.
    bool resize(unsigned int n);

    /// Returns the number of polyhedra.
    [[nodiscard]] int size() const;
    [[nodiscard]] GLPolyh& getPolyh(unsigned int i) const;
    /// Returns the number of corners of polyhedron i.
    [[nodiscard]] unsigned int polyhSize(int i) const;
    /// Returns the j-th corner of polyhedron i; a j past its corners stops the program with the standard library's
    /// assertion.
    [[nodiscard]] int getNook(unsigned int i, unsigned int j) const;
    /// Replaces polyhedron i by a copy of `p`; returns false, changing nothing, where there is no polyhedron i.
    bool setPolyh(unsigned int i, GLPolyh const& p);

  private:
    void clear();

    int _count = 0;
    std::unique_ptr<GLPolyh[]> _polyhedra;
};
