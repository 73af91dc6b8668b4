// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/RleFrame.h"

#include "volume/dicom/FrameDecoder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

namespace {

using tamo::volume::BadFrame;
using tamo::volume::decodeRle;

using Bytes = std::vector<unsigned char>;

// The header of planes that begin at these places, then their bytes.
Bytes frameOf(std::vector<std::uint32_t> const& starts, Bytes const& data) {
    Bytes bytes(64);
    bytes[0] = static_cast<unsigned char>(starts.size());
    for (std::size_t i = 0; i < starts.size(); ++i) {
        bytes[4 + 4 * i] = static_cast<unsigned char>(starts[i]);
    }
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

TEST(RleFrame, ExpandsRunsAndLiterals) {
    // Three literal bytes, a run of four, nothing, a run of two of which one fits.
    Bytes const frame = frameOf({64}, {2, 10, 20, 30, 253, 40, 128, 255, 50});
    EXPECT_EQ(decodeRle(frame, 8, 1), (Bytes{10, 20, 30, 40, 40, 40, 40, 50}));
}

TEST(RleFrame, PutsPlanesTogetherTheMostSignificantFirst) {
    Bytes const pixels = decodeRle(frameOf({64, 67}, {1, 1, 2, 1, 3, 4}), 2, 2);
    std::uint16_t numbers[2];
    std::memcpy(numbers, pixels.data(), 4);
    EXPECT_EQ(numbers[0], 0x103);
    EXPECT_EQ(numbers[1], 0x204);
}

TEST(RleFrame, RefusesEveryEarlyEnd) {
    Bytes const frame = frameOf({64, 67}, {1, 1, 2, 1, 3, 4});
    for (std::size_t bytes = 0; bytes < frame.size(); ++bytes) {
        EXPECT_THROW(decodeRle({frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(bytes)}, 2, 2), BadFrame);
    }
}

TEST(RleFrame, RefusesPlanesThatLieElsewhereOrAreOfAnotherNumber) {
    Bytes const data{1, 1, 2, 1, 3, 4};
    EXPECT_THROW(decodeRle(frameOf({63, 67}, data), 2, 2), BadFrame);
    EXPECT_THROW(decodeRle(frameOf({64, 200}, data), 2, 2), BadFrame);
    EXPECT_THROW(decodeRle(frameOf({67, 64}, data), 2, 2), BadFrame);
    EXPECT_THROW(decodeRle(frameOf({64}, data), 2, 2), BadFrame);
}

} // namespace
