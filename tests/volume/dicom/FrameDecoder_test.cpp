// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/FrameDecoder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace {

using tamo::volume::BadFrame;
using tamo::volume::CompressedFrame;
using tamo::volume::FrameEncoding;

// A picture of 16 x 8 pixels that grows by 8 from column to column, as baseline JPEG.
std::vector<unsigned char> baselineJpeg() {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* data = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &data, &size);
    jpeg.image_width = 16;
    jpeg.image_height = 8;
    jpeg.input_components = 1;
    jpeg.in_color_space = JCS_GRAYSCALE;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 100, TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    for (int y = 0; y < 8; ++y) {
        std::vector<unsigned char> row(16);
        for (int x = 0; x < 16; ++x) {
            row[static_cast<std::size_t>(x)] = static_cast<unsigned char>(8 * x);
        }
        unsigned char* rows = row.data();
        jpeg_write_scanlines(&jpeg, &rows, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::vector<unsigned char> bytes(data, data + size);
    std::free(data);
    return bytes;
}

CompressedFrame baselineFrame(int bitsAllocated) {
    return {FrameEncoding::Jpeg, {baselineJpeg()}, 16, 8, bitsAllocated};
}

TEST(FrameDecoder, ExpandsBaselineJpeg) {
    std::vector<unsigned char> const pixels = decodeFrame(baselineFrame(8));
    ASSERT_EQ(pixels.size(), 128U);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        EXPECT_NEAR(pixels[i], 8 * static_cast<int>(i % 16), 2);
    }
}

TEST(FrameDecoder, WidensFramesOfFewBits) {
    std::vector<unsigned char> const pixels = decodeFrame(baselineFrame(16));
    ASSERT_EQ(pixels.size(), 256U);
    EXPECT_NEAR(pixels[20], 80, 2);
    EXPECT_EQ(pixels[21], 0);
}

TEST(FrameDecoder, JoinsPieces) {
    CompressedFrame frame = baselineFrame(8);
    std::vector<unsigned char> const bytes = frame.fragments.front();
    auto const middle = bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 4 * 2);
    frame.fragments = {{bytes.begin(), middle}, {middle, bytes.end()}};
    EXPECT_EQ(decodeFrame(frame), decodeFrame(baselineFrame(8)));
}

TEST(FrameDecoder, RefusesAnotherSize) {
    for (int const columns : {15, 17}) {
        CompressedFrame frame = baselineFrame(8);
        frame.columns = columns;
        EXPECT_THROW(decodeFrame(frame), BadFrame);
    }
}

TEST(FrameDecoder, RefusesFramesThatEndEarlyAndPrintsNothing) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    for (FrameEncoding const encoding : {FrameEncoding::Jpeg, FrameEncoding::Rle, FrameEncoding::Jpeg2000}) {
        CompressedFrame frame = baselineFrame(8);
        frame.encoding = encoding;
        std::size_t const whole = frame.fragments.front().size();
        for (std::size_t const bytes : {std::size_t{0}, std::size_t{1}, std::size_t{20}, whole / 2, whole * 9 / 10}) {
            frame.fragments.front() = baselineJpeg();
            frame.fragments.front().resize(bytes);
            EXPECT_THROW(decodeFrame(frame), BadFrame) << bytes;
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// A decoder that meets damage warns of it, and goes on where it can.
TEST(FrameDecoder, PrintsNothingOfDamage) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    for (std::size_t at = 20; at < baselineJpeg().size(); ++at) {
        CompressedFrame frame = baselineFrame(8);
        frame.fragments.front()[at] ^= 0xFFU;
        try {
            static_cast<void>(tamo::volume::decodeFrame(frame));
        } catch (BadFrame const&) {
            // As likely as not.
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// Each goes over the whole picture, and may be a few bytes.
TEST(FrameDecoder, RefusesJpegOfMoreScansThanEncodersMake) {
    std::vector<unsigned char> bytes = baselineJpeg();
    std::vector<unsigned char> const scan{0xFF, 0xDA, 0, 8, 1, 1, 0, 1, 63, 0, 0};
    auto const reason = [&bytes] {
        try {
            static_cast<void>(tamo::volume::decodeFrame({FrameEncoding::Jpeg, {bytes}, 16, 8, 8}));
        } catch (BadFrame const& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(reason().find("scans"), std::string::npos) << i;
        bytes.insert(bytes.end() - 2, scan.begin(), scan.end());
    }
    EXPECT_NE(reason().find("scans"), std::string::npos);
}

} // namespace
