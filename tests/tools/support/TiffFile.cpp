// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeFiles.h"

#include <tiffio.h>

#include <array>

namespace fs = std::filesystem;

void writeTiffPages(Samples const& samples, fs::path const& path, char const* mode, int compression, int first,
                    int last) {
    TIFF* const file = TIFFOpen(path.c_str(), mode);
    for (int z = first; z <= last; ++z) {
        TIFFSetField(file, TIFFTAG_IMAGEWIDTH, samples.size[0]);
        TIFFSetField(file, TIFFTAG_IMAGELENGTH, samples.size[1]);
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 16);
        TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_INT);
        TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, 1);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(file, TIFFTAG_COMPRESSION, compression);
        TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, 3);
        std::vector<std::int16_t> row(static_cast<std::size_t>(samples.size[0]));
        for (int y = 0; y < samples.size[1]; ++y) {
            for (int x = 0; x < samples.size[0]; ++x) {
                row[static_cast<std::size_t>(x)] = samples.at(x, y, z);
            }
            TIFFWriteScanline(file, row.data(), static_cast<std::uint32_t>(y), 0);
        }
        TIFFWriteDirectory(file);
    }
    TIFFClose(file);
}

void writeTiledTiff(Samples const& samples, fs::path const& path) {
    TIFF* const file = TIFFOpen(path.c_str(), "w8");
    constexpr int kTile = 16;
    for (int z = 0; z < samples.size[2]; ++z) {
        TIFFSetField(file, TIFFTAG_IMAGEWIDTH, samples.size[0]);
        TIFFSetField(file, TIFFTAG_IMAGELENGTH, samples.size[1]);
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 16);
        TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_INT);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(file, TIFFTAG_TILEWIDTH, kTile);
        TIFFSetField(file, TIFFTAG_TILELENGTH, kTile);
        for (int top = 0; top < samples.size[1]; top += kTile) {
            for (int left = 0; left < samples.size[0]; left += kTile) {
                std::array<std::int16_t, kTile * kTile> tile{};
                for (int i = 0; i < kTile * kTile; ++i) {
                    int const x = left + i % kTile;
                    int const y = top + i / kTile;
                    bool const isInside = x < samples.size[0] && y < samples.size[1];
                    tile[static_cast<std::size_t>(i)] = isInside ? samples.at(x, y, z) : std::int16_t{-1};
                }
                TIFFWriteTile(file, tile.data(), static_cast<std::uint32_t>(left), static_cast<std::uint32_t>(top), 0,
                              0);
            }
        }
        TIFFWriteDirectory(file);
    }
    TIFFClose(file);
}
