// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "PictureFiles.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <tiffio.h>

/// How a page is written.
struct TiffOptions {
    std::uint16_t compression = COMPRESSION_NONE;
    bool isTiled = false;
    std::uint16_t photometric = PHOTOMETRIC_MINISBLACK;
    std::uint16_t sampleFormat = SAMPLEFORMAT_UINT;
    std::uint16_t fillOrder = FILLORDER_MSB2LSB;
    /// Pixels per unit; no tags for 0.
    float resolutionX = 0;
    float resolutionY = 0;
    std::uint16_t resolutionUnit = RESUNIT_NONE;
    std::uint32_t subfileType = 0;
    std::uint16_t orientation = ORIENTATION_TOPLEFT;
    /// Slices per page; no tag for 0.
    std::uint32_t depth = 0;
    std::string description;
};

/// Writes a TIFF file page by page. The mode is that of the library: "w" with "b" for big-endian, "8" for BigTIFF.
class TiffWriter {
  public:
    TiffWriter(std::filesystem::path const& path, char const* mode) : _file(TIFFOpen(path.c_str(), mode)) {}

    void addPage(TestPicture const& picture, TiffOptions const& options = {});

  private:
    struct Close {
        void operator()(TIFF* file) const { TIFFClose(file); }
    };
    std::unique_ptr<TIFF, Close> _file;
};

/// Returns the bytes of a file of one page, without compression, whose pixels stand at the end: what follows them may
/// be appended. The bytes of `picture` are written as they are.
std::string pageWithOpenEnd(TestPicture const& picture, TiffOptions const& options, bool isBigEndian);
