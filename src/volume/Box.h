// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Size3.h"

namespace tamo::volume {

/// A box of voxels, both ends included.
struct Box {
    Size3 first{};
    Size3 last{};

    /// Returns the lengths of the sides.
    [[nodiscard]] Size3 sides() const {
        return {last[0] - first[0] + 1, last[1] - first[1] + 1, last[2] - first[2] + 1};
    }
};

/// Returns the box of all voxels of a volume.
inline Box wholeOf(Size3 const& size) { return {{0, 0, 0}, {size[0] - 1, size[1] - 1, size[2] - 1}}; }

/// Returns whether a box has at least one voxel and lies inside a volume of a size.
inline bool isInside(Box const& box, Size3 const& size) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (box.first[axis] < 0 || box.first[axis] > box.last[axis] || box.last[axis] >= size[axis]) {
            return false;
        }
    }
    return true;
}

} // namespace tamo::volume
