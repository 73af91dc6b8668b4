// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <Kade/CImage.h>

#include <tamo/geometry/GLtVec3.h>

// All that the library knows of the image class. Where the callers' class has other accessors, a header of theirs with
// the same three functions takes the place of this one (TAMO_CIMAGE_ADAPTER).

/// Returns the image's size along x, y and z, in voxels.
inline GLtVec3<int> imageSize(Kade::CImage const& image) { return image.size(); }

/// Returns the image's address increments along x, y and z, in voxels, each taken as a 32-bit value.
inline GLtVec3<int> imageIncrements(Kade::CImage const& image) {
    return {static_cast<int>(image.increments().x), static_cast<int>(image.increments().y),
            static_cast<int>(image.increments().z)};
}

/// Returns the address of the image's first voxel.
inline unsigned char const* imageFirstVoxel(Kade::CImage const& image) { return image.firstVoxel(); }
