// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "volume/Error.h"
#include "volume/slices/Picture.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

/// Returns the pixels of a box of a picture that was not read from before.
inline std::vector<unsigned char> pixelsOf(tamo::volume::Picture& picture, tamo::volume::Box const& box) {
    auto const count = static_cast<std::size_t>(tamo::volume::voxelCount(box.sides()));
    std::vector<unsigned char> pixels(count * static_cast<std::size_t>(bytesOf(picture.type())));
    picture.read(box, pixels.data());
    return pixels;
}

/// Opens a picture and returns all its pixels.
inline std::vector<unsigned char> pixelsOf(std::filesystem::path const& path) {
    auto const picture = openPicture(path, tamo::volume::pictureFormatOf(path).value());
    return pixelsOf(*picture, tamo::volume::wholeOf({picture->width(), picture->height(), 1}));
}

/// Returns the line of the `Error` that reading all of a picture throws, or nothing.
inline std::string pictureRefusal(std::filesystem::path const& path) {
    try {
        pixelsOf(path);
    } catch (tamo::volume::Error const& error) {
        return error.what();
    }
    return {};
}
