// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace tamo::volume {

/// Holds whole numbers of voxels along x, y and z.
using Size3 = std::array<std::int64_t, 3>;

/// Returns the product of the sides. The caller makes sure that it fits: `isCountable` says when it does.
inline std::int64_t voxelCount(Size3 const& size) { return size[0] * size[1] * size[2]; }

/// Returns whether no side is negative and the volume's bytes, at up to 8 per voxel, can be counted in 64 signed bits.
inline bool isCountable(Size3 const& size) {
    constexpr std::int64_t kMostVoxels = INT64_MAX / 8;
    std::int64_t voxels = 1;
    for (std::int64_t const side : size) {
        if (side < 0 || (side > 0 && voxels > kMostVoxels / side)) {
            return false;
        }
        voxels *= side > 0 ? side : 1;
    }
    return true;
}

/// Writes the three numbers with a separator between them.
inline std::string text(Size3 const& numbers, char const* separator) {
    return std::to_string(numbers[0]) + separator + std::to_string(numbers[1]) + separator + std::to_string(numbers[2]);
}

} // namespace tamo::volume
