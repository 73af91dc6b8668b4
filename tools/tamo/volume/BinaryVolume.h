// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../terminal/Progress.h"
#include "Box.h"
#include "ValueRange.h"
#include "Volume.h"

#include <tamo/geometry/GLtVec3.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace tamo::tool {

/// Holds one byte for each voxel of a box of a volume, 1 for foreground and 0 for background, x fastest, then y, then
/// z.
struct BinaryVolume {
    std::vector<unsigned char> voxels;
    /// Where in the volume the box begins.
    Size3 first{};
    /// The sides of the box.
    Size3 size{};
    std::uint64_t foreground = 0;

    /// Returns the address distances between neighbouring voxels, as a scan takes them.
    [[nodiscard]] GLtVec3<int> increments() const { return {1, size[0], size[0] * size[1]}; }
};

/// Calls `visit` with the first and the last foreground voxel of every row that has one, in voxels of the whole volume:
/// what lies furthest out, in whatever direction, is among them.
void visitRowEnds(BinaryVolume const& binary, std::function<void(Vector3 const&)> const& visit);

/// Marks the voxels of `box` whose value lies in `range`, ends included; NaN is background.
/// The box's slices must not have more than 2^31 - 1 voxels.
BinaryVolume makeBinaryVolume(Volume const& volume, ValueRange range, Box const& box, Progress& progress);

} // namespace tamo::tool
