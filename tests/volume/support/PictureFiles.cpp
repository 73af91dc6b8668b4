// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "PictureFiles.h"

#include "support/files/fileContent.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <jpeglib.h>
#include <png.h>

TestPicture makePicture(int width, int height, int bits, int channels, int first) {
    TestPicture picture{width, height, bits, channels, {}};
    for (int i = 0; i < width * height * channels * (bits == 16 ? 2 : 1); ++i) {
        picture.bytes.push_back(static_cast<unsigned char>((first + i) % (bits < 8 ? 1 << bits : 256)));
    }
    return picture;
}

TestPicture sliceOf(Phantom const& phantom, int z, int bits) {
    TestPicture picture{phantom.size[0], phantom.size[1], bits, 1, {}};
    for (int y = 0; y < phantom.size[1]; ++y) {
        for (int x = 0; x < phantom.size[0]; ++x) {
            std::int16_t const value = phantom.at(x, y, z);
            if (bits == 16) {
                std::string const bytes = numberBytes(value);
                picture.bytes.insert(picture.bytes.end(), bytes.begin(), bytes.end());
            } else {
                picture.bytes.push_back(static_cast<unsigned char>(value / 16));
            }
        }
    }
    return picture;
}

std::string packedRows(TestPicture const& picture) {
    std::string packed;
    for (int y = 0; y < picture.height; ++y) {
        std::size_t const start = packed.size();
        int const numbers = picture.width * picture.channels;
        if (picture.bits >= 8) {
            int const bytes = numbers * picture.bits / 8;
            packed.append(reinterpret_cast<char const*>(picture.bytes.data()) + std::ptrdiff_t{y} * bytes,
                          static_cast<std::size_t>(bytes));
            continue;
        }
        packed.append(static_cast<std::size_t>((numbers * picture.bits + 7) / 8), '\0');
        for (int x = 0; x < numbers; ++x) {
            int const bit = x * picture.bits;
            char& target = packed[start + static_cast<std::size_t>(bit / 8)];
            int const value = picture.bytes[static_cast<std::size_t>(y * numbers + x)];
            target = static_cast<char>(target | value << (8 - picture.bits - bit % 8));
        }
    }
    return packed;
}

void writePng(std::filesystem::path const& path, TestPicture const& picture, PngOptions options) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, file);
    int const greys = picture.channels == 2 ? PNG_COLOR_TYPE_GRAY_ALPHA : PNG_COLOR_TYPE_GRAY;
    int const colours = picture.channels == 3 ? PNG_COLOR_TYPE_RGB : greys;
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width), static_cast<png_uint_32>(picture.height),
                 picture.bits, options.isPalette ? PNG_COLOR_TYPE_PALETTE : colours,
                 options.isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    std::vector<png_color> const palette(1U << (picture.bits == 16 ? 0 : picture.bits));
    if (options.isPalette) {
        png_set_PLTE(png, info, palette.data(), static_cast<int>(palette.size()));
    }
    png_write_info(png, info);
    if (picture.bits == 16) {
        png_set_swap(png);
    }
    std::string packed = packedRows(picture);
    std::size_t const rowBytes = packed.size() / static_cast<std::size_t>(picture.height);
    std::vector<png_bytep> rows;
    for (std::size_t at = 0; at < packed.size(); at += rowBytes) {
        rows.push_back(reinterpret_cast<png_bytep>(packed.data() + at));
    }
    png_write_image(png, rows.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    std::fclose(file);
}

void writeJpeg(std::filesystem::path const& path, TestPicture const& picture, JpegOptions options) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    jpeg_error_mgr errors{};
    jpeg_compress_struct jpeg{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    jpeg_stdio_dest(&jpeg, file);
    jpeg.image_width = static_cast<JDIMENSION>(picture.width);
    jpeg.image_height = static_cast<JDIMENSION>(picture.height);
    jpeg.input_components = picture.channels;
    jpeg.in_color_space = picture.channels == 3 ? JCS_RGB : JCS_GRAYSCALE;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, options.quality, TRUE);
    if (options.isProgressive) {
        jpeg_simple_progression(&jpeg);
    }
    jpeg_start_compress(&jpeg, TRUE);
    std::vector<unsigned char> bytes = picture.bytes;
    for (int y = 0; y < picture.height; ++y) {
        unsigned char* row = bytes.data() + std::ptrdiff_t{y} * picture.width * picture.channels;
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::fclose(file);
}

namespace {

// The colours of a palette that runs from black to white, 4 bytes each, or 3.
std::string greyPalette(int colours, BmpOptions const& options) {
    std::string palette;
    for (int i = 0; i < colours; ++i) {
        int const grey = (options.isInverted ? colours - 1 - i : i) * 255 / (colours - 1);
        int const tint = i + 1 == colours ? options.tint : 0;
        for (int const part : {grey + tint, grey, grey}) {
            palette += static_cast<char>(part);
        }
        palette += options.isCore ? "" : std::string(1, '\0');
    }
    return palette;
}

} // namespace

void writeBmp(std::filesystem::path const& path, TestPicture const& picture, BmpOptions options) {
    int const bits = picture.bits * picture.channels;
    std::string const palette = bits <= 8 ? greyPalette(1 << bits, options) : std::string();
    auto const height = static_cast<std::int32_t>(options.isTopDown ? -picture.height : picture.height);
    auto const depth = numberBytes<std::uint16_t>(1) + numberBytes(static_cast<std::uint16_t>(bits));
    std::string const header =
        options.isCore ? numberBytes<std::uint32_t>(12) + numberBytes(static_cast<std::uint16_t>(picture.width)) +
                             numberBytes(static_cast<std::uint16_t>(height)) + depth
                       : numberBytes<std::uint32_t>(40) + numberBytes<std::int32_t>(picture.width) +
                             numberBytes(height) + depth + std::string(24, '\0');
    std::string const packed = packedRows(picture);
    std::size_t const rowBytes = packed.size() / static_cast<std::size_t>(picture.height);
    std::string pixels;
    for (int y = 0; y < picture.height; ++y) {
        int const row = options.isTopDown ? y : picture.height - 1 - y;
        pixels += packed.substr(static_cast<std::size_t>(row) * rowBytes, rowBytes);
        pixels.append((4 - rowBytes % 4) % 4, '\0');
    }
    auto const offset = static_cast<std::uint32_t>(14 + header.size() + palette.size());
    auto const total = static_cast<std::uint32_t>(offset + pixels.size());
    writeFile(path, "BM" + numberBytes(total) + std::string(4, '\0') + numberBytes(offset) + header + palette + pixels);
}
