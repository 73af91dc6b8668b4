// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "PngEncoder.h"

#include <png.h>

#include <new>

namespace tamo::tool {

std::vector<unsigned char> encodePng(picture::Picture const& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.size.width);
    image.height = static_cast<png_uint_32>(picture.size.height);
    image.format = PNG_FORMAT_RGB;
    // A picture begins with its bottom row, a PNG file with its top row.
    png_int_32 const rowStep = -3 * picture.size.width;
    std::vector<unsigned char> bytes(PNG_IMAGE_PNG_SIZE_MAX(image));
    png_alloc_size_t size = bytes.size();
    if (png_image_write_to_memory(&image, bytes.data(), &size, /*convert_to_8_bit=*/0, picture.pixels.data(), rowStep,
                                  /*colormap=*/nullptr) == 0) {
        // Of what libpng refuses nothing is left but a want of memory.
        throw std::bad_alloc();
    }
    bytes.resize(size);
    return bytes;
}

} // namespace tamo::tool
