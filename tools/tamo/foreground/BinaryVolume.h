// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Foreground.h"

#include "volume/Progress.h"
#include "volume/Volume.h"

#include <tamo/geometry/GLtVec3.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace tamo::tool {

/// Holds one byte for each voxel of a box of a volume, 1 for foreground and 0 for background, x fastest, then y, then
/// z.
struct BinaryVolume {
    std::vector<unsigned char> voxels;
    /// The part of the file that the box is.
    volume::Box box;
    std::uint64_t foreground = 0;

    /// Returns the sides of the box, as a scan takes them.
    [[nodiscard]] GLtVec3<int> extent() const;
    /// Returns the address distances between neighbouring voxels, as a scan takes them.
    [[nodiscard]] GLtVec3<int> increments() const;
};

/// Calls `visit` with the first and the last foreground voxel of every row that has one, in voxels of the whole file:
/// what lies furthest out, in whatever direction, is among them.
void visitRowEnds(BinaryVolume const& binary, std::function<void(Vector3 const&)> const& visit);

/// Marks the voxels of a volume whose values are foreground. No side, and no slice, may have more than 2^31 - 1 voxels.
BinaryVolume makeBinaryVolume(volume::Volume const& source, Foreground const& foreground,
                              volume::Progress const& progress);

} // namespace tamo::tool
