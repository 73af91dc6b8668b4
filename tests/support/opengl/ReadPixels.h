// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <GL/gl.h>

#include <array>
#include <cstddef>
#include <vector>

namespace tamo::test {

/// Red, green and blue.
using Pixel = std::array<unsigned char, 3>;

inline constexpr Pixel kBlack{0, 0, 0};

/// Returns the picture of the current context, `width` x `height`, row by row from the bottom.
inline std::vector<Pixel> readPixels(int width, int height) {
    std::vector<Pixel> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
}

/// Returns each pixel's depth, 0 at the eye to 1, in the same order.
inline std::vector<float> readDepths(int width, int height) {
    std::vector<float> depths(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    glReadPixels(0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
    return depths;
}

} // namespace tamo::test
