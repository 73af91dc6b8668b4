// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/Jpeg2000.h"

#include "volume/dicom/FrameDecoder.h"
#include "volume/support/DicomWriter.h"

#include <gtest/gtest.h>

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

} // namespace
