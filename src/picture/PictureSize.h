// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo::picture {

/// What Mesa's software rasteriser can draw, and every hardware of the last ten years.
inline constexpr int kMaxPictureSide = 16384;

/// Numbers of pixels across and up, each at least 1.
struct PictureSize {
    int width;
    int height;

    [[nodiscard]] double aspect() const { return static_cast<double>(width) / height; }
};

} // namespace tamo::picture
