// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <Kade/CImage.h>

#include <tamo/geometry/GLtVec3.h>

inline GLtVec3<int> toInts(std::array<long, 3> const& v) {
    return {static_cast<int>(v[0]), static_cast<int>(v[1]), static_cast<int>(v[2])};
}

inline GLtVec3<int> imageSize(Kade::CImage const& image) { return toInts(image.shape()); }
inline GLtVec3<int> imageIncrements(Kade::CImage const& image) { return toInts(image.strides()); }
inline unsigned char const* imageFirstVoxel(Kade::CImage const& image) { return image.data(); }
