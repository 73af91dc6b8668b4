// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/Jpeg2000.h"

#include "volume/dicom/FrameDecoder.h"
#include "volume/support/DicomWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

using tamo::volume::BadFrame;
using tamo::volume::decodeJpeg2000;

std::vector<unsigned char> encoded(Phantom const& phantom) {
    return encodeJpeg2000(phantom.values, phantom.size[0], phantom.size[1], 1);
}

TEST(Jpeg2000, GivesEveryPixel) {
    Phantom phantom = makePhantom(37, 29, 1);
    phantom.values[5] = -700;
    std::vector<std::int32_t> const pixels = decodeJpeg2000(encoded(phantom), 37, 29);
    EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), phantom.values.begin(), phantom.values.end()));
}

TEST(Jpeg2000, RefusesAnotherSize) {
    std::vector<unsigned char> const bytes = encoded(makePhantom(37, 29, 1));
    EXPECT_THROW(decodeJpeg2000(bytes, 29, 37), BadFrame);
    EXPECT_THROW(decodeJpeg2000(bytes, 37, 28), BadFrame);
}

TEST(Jpeg2000, RefusesStreamsThatEndEarlyAndPrintsNothing) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    std::vector<unsigned char> const whole = encoded(makePhantom(37, 29, 1));
    for (std::size_t bytes = 0; bytes + 2 < whole.size(); bytes += 37) {
        EXPECT_THROW(decodeJpeg2000({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(bytes)}, 37, 29),
                     BadFrame)
            << bytes << " of " << whole.size();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// Tiles of one pixel: a picture of the size wanted would need thousands, each with kilobytes of state.
TEST(Jpeg2000, RefusesMoreTilesThanTheStreamHasRoomFor) {
    std::vector<unsigned char> bytes = encoded(makePhantom(37, 29, 1));
    for (std::size_t const at : {24U, 28U}) {
        bytes[at] = bytes[at + 1] = bytes[at + 2] = 0;
        bytes[at + 3] = 1;
    }
    EXPECT_THROW(decodeJpeg2000(bytes, 37, 29), BadFrame);
}

// Returns where a marker stands.
std::size_t find(std::vector<unsigned char> const& bytes, unsigned char marker) {
    std::array<unsigned char, 2> const wanted{0xFF, marker};
    return static_cast<std::size_t>(std::search(bytes.begin(), bytes.end(), wanted.begin(), wanted.end()) -
                                    bytes.begin());
}

// The marker of the coding style, with precincts of one pixel.
std::vector<unsigned char> tinyPrecincts(unsigned char levels) {
    std::vector<unsigned char> marker{0xFF, 0x52, 0, static_cast<unsigned char>(13 + levels), 1, 0, 0, 1, 0};
    marker.insert(marker.end(), {levels, 4, 4, 0, 1});
    marker.insert(marker.end(), levels + 1U, 0);
    return marker;
}

std::string reasonAgainst(std::vector<unsigned char> const& bytes, int columns, int rows) {
    try {
        static_cast<void>(decodeJpeg2000(bytes, columns, rows));
    } catch (BadFrame const& error) {
        return error.what();
    }
    return {};
}

// Each would take hundreds of bytes: gigabytes for a large picture.
TEST(Jpeg2000, RefusesMorePrecinctsThanTheStreamHasRoomFor) {
    Phantom empty = makePhantom(500, 300, 1);
    std::fill(empty.values.begin(), empty.values.end(), std::int16_t{0});
    std::vector<unsigned char> const bytes = encoded(empty);
    std::vector<unsigned char> const tiny = tinyPrecincts(2);
    auto const at = [&bytes](unsigned char marker) {
        return bytes.begin() + static_cast<std::ptrdiff_t>(find(bytes, marker));
    };
    std::vector<unsigned char> picture(bytes.begin(), at(0x52));
    picture.insert(picture.end(), tiny.begin(), tiny.end());
    picture.insert(picture.end(), at(0x5C), bytes.end());
    std::vector<unsigned char> tile(bytes.begin(), at(0x93));
    tile.insert(tile.end(), tiny.begin(), tiny.end());
    tile.insert(tile.end(), at(0x93), bytes.end());
    tile[find(bytes, 0x90) + 9] = static_cast<unsigned char>(tile[find(bytes, 0x90) + 9] + tiny.size());
    EXPECT_EQ(reasonAgainst(bytes, 500, 300), "");
    EXPECT_NE(reasonAgainst(picture, 500, 300).find("more JPEG 2000 precincts"), std::string::npos);
    EXPECT_NE(reasonAgainst(tile, 500, 300).find("more JPEG 2000 precincts"), std::string::npos);
}

TEST(Jpeg2000, GivesEveryPixelOfHonestPrecincts) {
    Phantom const phantom = makePhantom(137, 129, 1);
    std::vector<std::int32_t> const pixels = decodeJpeg2000(encodeJpeg2000(phantom.values, 137, 129, 1, 32), 137, 129);
    EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), phantom.values.begin(), phantom.values.end()));
}

} // namespace
