// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TiffFiles.h"

#include "support/files/fileContent.h"

#include <array>

namespace {

constexpr std::uint32_t kTileSide = 16;

void writeTiles(TIFF* file, TestPicture const& picture) {
    auto const pixelBytes = static_cast<std::size_t>(picture.bits / 8);
    for (int top = 0; top < picture.height; top += static_cast<int>(kTileSide)) {
        for (int left = 0; left < picture.width; left += static_cast<int>(kTileSide)) {
            std::vector<unsigned char> tile(kTileSide * kTileSide * pixelBytes);
            for (std::size_t i = 0; i < tile.size(); ++i) {
                int const x = left + static_cast<int>(i / pixelBytes % kTileSide);
                int const y = top + static_cast<int>(i / pixelBytes / kTileSide);
                if (x < picture.width && y < picture.height) {
                    tile[i] =
                        picture.bytes[static_cast<std::size_t>(y * picture.width + x) * pixelBytes + i % pixelBytes];
                }
            }
            TIFFWriteTile(file, tile.data(), static_cast<std::uint32_t>(left), static_cast<std::uint32_t>(top), 0, 0);
        }
    }
}

void writeRows(TIFF* file, TestPicture const& picture) {
    std::string packed = packedRows(picture);
    std::size_t const rowBytes = packed.size() / static_cast<std::size_t>(picture.height);
    for (std::uint32_t y = 0; y < static_cast<std::uint32_t>(picture.height); ++y) {
        TIFFWriteScanline(file, packed.data() + y * rowBytes, y, 0);
    }
}

} // namespace

void TiffWriter::addPage(TestPicture const& picture, TiffOptions const& options) {
    TIFF* const file = _file.get();
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, picture.width);
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, picture.height);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, picture.bits);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, picture.channels);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, options.photometric);
    TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, options.sampleFormat);
    TIFFSetField(file, TIFFTAG_COMPRESSION, options.compression);
    TIFFSetField(file, TIFFTAG_FILLORDER, options.fillOrder);
    TIFFSetField(file, TIFFTAG_SUBFILETYPE, options.subfileType);
    TIFFSetField(file, TIFFTAG_ORIENTATION, options.orientation);
    if (options.depth > 0) {
        TIFFSetField(file, TIFFTAG_IMAGEDEPTH, options.depth);
    }
    if (!options.description.empty()) {
        TIFFSetField(file, TIFFTAG_IMAGEDESCRIPTION, options.description.c_str());
    }
    if (options.resolutionX > 0) {
        TIFFSetField(file, TIFFTAG_XRESOLUTION, static_cast<double>(options.resolutionX));
        TIFFSetField(file, TIFFTAG_YRESOLUTION, static_cast<double>(options.resolutionY));
        TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, options.resolutionUnit);
    }
    std::array<std::uint16_t, 65536> ramp{};
    if (options.photometric == PHOTOMETRIC_PALETTE) {
        TIFFSetField(file, TIFFTAG_COLORMAP, ramp.data(), ramp.data(), ramp.data());
    }
    if (options.isTiled) {
        TIFFSetField(file, TIFFTAG_TILEWIDTH, kTileSide);
        TIFFSetField(file, TIFFTAG_TILELENGTH, kTileSide);
        writeTiles(file, picture);
    } else {
        // JPEG wants a multiple of 8.
        constexpr int kRowsPerStrip = 8;
        TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, kRowsPerStrip);
        writeRows(file, picture);
    }
    TIFFWriteDirectory(file);
}

std::string pageWithOpenEnd(TestPicture const& picture, TiffOptions const& options, bool isBigEndian) {
    std::uint32_t const width = static_cast<std::uint32_t>(picture.width);
    std::uint32_t const height = static_cast<std::uint32_t>(picture.height);
    constexpr std::uint32_t kEntries = 11;
    constexpr std::uint32_t kTextAt = 8 + 2 + 12 * kEntries + 4;
    // An even place: the resolutions, then the pixels.
    std::string text = options.description + std::string(1 + options.description.size() % 2 + 1, '\0');
    auto const ratioAt = static_cast<std::uint32_t>(kTextAt + text.size());
    std::string directory;
    auto const number32 = [&](std::uint32_t value) { return numberBytes(value, isBigEndian); };
    auto const number16 = [&](std::uint32_t value) {
        return numberBytes(static_cast<std::uint16_t>(value), isBigEndian);
    };
    enum Type : std::uint32_t {
        kText = 2,
        kLong = 4,
        kRatio = 5
    };
    auto const entry = [&](std::uint32_t tag, std::uint32_t type, std::uint32_t count, std::uint32_t value) {
        directory += number16(tag) + number16(type) + number32(count) + number32(value);
    };
    entry(TIFFTAG_IMAGEWIDTH, kLong, 1, width);
    entry(TIFFTAG_IMAGELENGTH, kLong, 1, height);
    entry(TIFFTAG_BITSPERSAMPLE, kLong, 1, static_cast<std::uint32_t>(picture.bits));
    entry(TIFFTAG_PHOTOMETRIC, kLong, 1, options.photometric);
    entry(TIFFTAG_IMAGEDESCRIPTION, kText, static_cast<std::uint32_t>(text.size()), kTextAt);
    entry(TIFFTAG_STRIPOFFSETS, kLong, 1, ratioAt + 16);
    entry(TIFFTAG_ROWSPERSTRIP, kLong, 1, height);
    entry(TIFFTAG_STRIPBYTECOUNTS, kLong, 1, width * height * static_cast<std::uint32_t>(picture.bits / 8));
    entry(TIFFTAG_XRESOLUTION, kRatio, 1, ratioAt);
    entry(TIFFTAG_YRESOLUTION, kRatio, 1, ratioAt + 8);
    entry(TIFFTAG_RESOLUTIONUNIT, kLong, 1, options.resolutionUnit);
    auto const ratio = [&](float value) {
        constexpr std::uint32_t kParts = 1000000;
        return number32(static_cast<std::uint32_t>(value * kParts)) + number32(kParts);
    };
    return (isBigEndian ? "MM" : "II") + number16(42) + number32(8) + number16(kEntries) + directory + number32(0) +
           text + ratio(options.resolutionX) + ratio(options.resolutionY) +
           std::string(picture.bytes.begin(), picture.bytes.end());
}
