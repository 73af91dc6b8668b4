// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <Kade/CImage.h>

#include <tamo/geometry/GLtVec3.h>

#include <cstddef>

// All that the library knows of the image class. Where the callers' class has other accessors, a header of theirs with
// the same three functions takes the place of this one (TAMO_CIMAGE_ADAPTER).

/// Returns the image's size along x, y and z, in voxels.
inline GLtVec3<int> imageSize(Kade::CImage const& image) { return image.size(); }

/// Returns the image's address increments along x, y and z, in voxels. A scan refuses an image with one that 32 bits do
/// not hold.
inline GLtVec3<std::ptrdiff_t> imageIncrements(Kade::CImage const& image) { return image.increments(); }

/// Returns the address of the image's first voxel.
inline unsigned char const* imageFirstVoxel(Kade::CImage const& image) { return image.firstVoxel(); }
