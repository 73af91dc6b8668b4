// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Phantom.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// A picture to be written: rows from the top, numbers of up to 8 bits as bytes, of 16 in the machine's byte order.
struct TestPicture {
    int width = 0;
    int height = 0;
    int bits = 8;
    /// Numbers per pixel: 1 for greys, 2 for greys with a transparency, 3 for colours.
    int channels = 1;
    std::vector<unsigned char> bytes;
};

/// Returns a picture whose bytes count up from `first`, modulo the range of its numbers.
TestPicture makePicture(int width, int height, int bits = 8, int channels = 1, int first = 0);

/// Returns a slice of a phantom, of 16 bits or, divided by 16, of 8.
TestPicture sliceOf(Phantom const& phantom, int z, int bits);

struct PngOptions {
    bool isInterlaced = false;
    bool isPalette = false;
};
void writePng(std::filesystem::path const& path, TestPicture const& picture, PngOptions options = {});

struct JpegOptions {
    int quality = 100;
    bool isProgressive = false;
};
void writeJpeg(std::filesystem::path const& path, TestPicture const& picture, JpegOptions options = {});

struct BmpOptions {
    bool isTopDown = false;
    /// Whether the header is the shorter one of the format's first version.
    bool isCore = false;
    /// Added to one channel of the last colour of the palette, which otherwise runs from black to white.
    int tint = 0;
    /// Whether the palette runs from white to black.
    bool isInverted = false;
};
void writeBmp(std::filesystem::path const& path, TestPicture const& picture, BmpOptions options = {});

/// Packs numbers of `bits` bits into bytes, the first in the highest bits; rows begin on whole bytes.
std::string packedRows(TestPicture const& picture);
