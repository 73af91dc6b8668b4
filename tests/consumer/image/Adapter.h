// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <Kade/CImage.h>

#include <tamo/geometry/GLtVec3.h>

#include <cstddef>

inline GLtVec3<int> imageSize(Kade::CImage const& image) {
    auto const& shape = image.shape();
    return {static_cast<int>(shape[0]), static_cast<int>(shape[1]), static_cast<int>(shape[2])};
}

inline GLtVec3<std::ptrdiff_t> imageIncrements(Kade::CImage const& image) {
    auto const strides = image.strides();
    return {strides[0], strides[1], strides[2]};
}

inline unsigned char const* imageFirstVoxel(Kade::CImage const& image) { return image.data(); }
