// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "PictureSize.h"

#include <vector>

namespace tamo::picture {

/// Holds a picture, 3 bytes (red, green, blue) per pixel, the bottom row first.
struct Picture {
    /// Makes a black picture.
    explicit Picture(PictureSize sizeIn);

    /// Copies `part`, which is as high as this picture, so that its left column becomes the column `left`. It has to
    /// fit.
    void place(Picture const& part, int left);

    PictureSize size;
    std::vector<unsigned char> pixels;
};

} // namespace tamo::picture
