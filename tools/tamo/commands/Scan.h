// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../volume/BinaryVolume.h"

#include <tamo/geometry/GLtVec3.h>

namespace tamo::tool {

/// A box of voxels to scan, every `step` of them along each axis.
struct Scan {
    BinaryVolume binary;
    unsigned int step;

    /// Returns the box's sides, as a scan takes them.
    [[nodiscard]] GLtVec3<int> extent() const { return {binary.size[0], binary.size[1], binary.size[2]}; }
};

} // namespace tamo::tool
