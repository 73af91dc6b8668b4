// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Picture.h"

#include <algorithm>
#include <cstddef>

namespace tamo::picture {

namespace {

constexpr std::size_t kChannels = 3;

} // namespace

Picture::Picture(PictureSize sizeIn)
    : size(sizeIn),
      pixels(kChannels * static_cast<std::size_t>(sizeIn.width) * static_cast<std::size_t>(sizeIn.height)) {}

void Picture::place(Picture const& part, int left) {
    auto const rowBytes = kChannels * static_cast<std::size_t>(size.width);
    auto const partBytes = kChannels * static_cast<std::size_t>(part.size.width);
    for (std::size_t y = 0; y < static_cast<std::size_t>(size.height); ++y) {
        auto const source = part.pixels.begin() + static_cast<std::ptrdiff_t>(y * partBytes);
        auto const target = y * rowBytes + kChannels * static_cast<std::size_t>(left);
        std::copy_n(source, partBytes, pixels.begin() + static_cast<std::ptrdiff_t>(target));
    }
}

} // namespace tamo::picture
