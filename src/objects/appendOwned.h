// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <memory>

namespace tamo {

/// Appends an object to a container that owns what its pointers point to, and returns it.
///
/// The container becomes the owner once its slot exists: where that cannot be allocated, the object is destroyed and
/// the container stays as it was. Throws `std::bad_alloc`.
template <typename Container, typename T> T& appendOwned(Container& container, std::unique_ptr<T> object) {
    container.push_back(object.get());
    return *object.release();
}

} // namespace tamo
