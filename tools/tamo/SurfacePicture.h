// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Camera.h"

#include <vector>

namespace tamo::tool {

/// Holds a picture, 3 bytes (red, green, blue) a pixel, the bottom row first.
struct Picture {
    PictureSize size{};
    std::vector<unsigned char> pixels;
};

/// Returns how many samples a side each pixel of a picture of that size is drawn with. Throws `UserError` for a picture
/// that is too large.
int chooseSamples(PictureSize size);

/// Draws the display lists of a surface, one behind the other, in the current context, lit from the viewer's upper
/// left, and reads the picture back. The context's picture measures `samples` times `size`. Shows how many lists are
/// drawn. Throws `UserError` where OpenGL reports an error.
Picture drawSurface(std::vector<unsigned int> const& displayLists, Camera const& camera, PictureSize size, int samples);

} // namespace tamo::tool
