// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/RecordingAggregator.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/TAMO.h>

#include <Kade/CImage.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using namespace tamo::test;

class WrapGlobalImage : public testing::Test {
  protected:
    WrapGlobalImage() { makeMarkedList(list); }

    GLObjectList list;
};

TEST_F(WrapGlobalImage, ScansTheWholeImageAsTheBufferForm) {
    VolumeLayout layout;
    layout.order = {2, 0, 1};
    layout.backwards = {true, false, true};
    layout.gap = 3;
    Triple const size = {5, 7, 6};
    PlainVolume volume({0, 0, 0}, size, layout);
    for (int i = 0; i < 5 * 7 * 6; ++i) {
        volume.at(i % 5, i / 5 % 7, i / 35) = i % 3 == 0 ? 1 : 0;
    }
    auto const [x, y, z] = volume.increments();
    Kade::CImage const image(volume.data(), toVec3(size), {x, y, z});
    for (unsigned int const step : {1U, 2U, 3U}) {
        RecordingAggregator fromImage;
        RecordingAggregator fromBuffer;
        EXPECT_TRUE(wrapGlobal(image, step, list, fromImage));
        EXPECT_TRUE(wrapGlobal(volume.data(), {x, y, z}, step, {0, 0, 0}, toVec3(size), list, fromBuffer));
        EXPECT_TRUE(fromImage.wasDrivenInOrder());
        EXPECT_EQ(fromImage.emissions, fromBuffer.emissions);
        EXPECT_FALSE(fromImage.emissions.empty());
    }
}

TEST_F(WrapGlobalImage, ADenseImageRunsAlongXThenYThenZ) {
    PlainVolume volume = PlainVolume::filled({4, 3, 2}, 0);
    volume.at(1, 1, 1) = 1;
    RecordingAggregator receiver;
    EXPECT_TRUE(wrapGlobal(Kade::CImage(volume.data(), {4, 3, 2}), 1, list, receiver));
    EXPECT_EQ(receiver.emissions.size(), 8U);
    EXPECT_EQ(receiver.emissions.front(), (Emission{128, {0, 0, 0}}));
}

TEST_F(WrapGlobalImage, RefusesWhatTheBufferFormRefuses) {
    unsigned char const voxel = 1;
    RecordingAggregator empty;
    EXPECT_FALSE(wrapGlobal(Kade::CImage(nullptr, {1, 1, 1}), 1, list, empty));
    EXPECT_TRUE(empty.wasDrivenInOrder());
    RecordingAggregator tooLarge;
    EXPECT_FALSE(wrapGlobal(Kade::CImage(&voxel, {1, 1, 1}), 2, list, tooLarge));
    EXPECT_TRUE(tooLarge.wasDrivenInOrder());
}

// Says whether an image of one voxel is scanned and counted, and checks that a refusal is complete.
bool isTaken(GLtVec3<std::ptrdiff_t> const& increments, GLObjectList const& list) {
    unsigned char const voxel = 1;
    Kade::CImage const image(&voxel, {1, 1, 1}, increments);
    RecordingAggregator receiver;
    bool const isScanned = wrapGlobal(image, 1, list, receiver);
    EXPECT_TRUE(receiver.wasDrivenInOrder());
    EXPECT_EQ(receiver.emissions.size(), isScanned ? 8U : 0U);
    GLDataInfo info({1, 2, 3}, {4, 5, 6}, 7, 8, 9, 10);
    EXPECT_EQ(getGLDataInfo(image, 1, list, info), isScanned);
    EXPECT_EQ(info.step(), isScanned ? 1U : 7U);
    EXPECT_EQ(info.primitives(), isScanned ? 8U : 10U);
    return isScanned;
}

TEST_F(WrapGlobalImage, IncrementsPastThirtyTwoBitsAreRefused) {
    constexpr std::ptrdiff_t kHighest = std::numeric_limits<std::int32_t>::max();
    constexpr std::ptrdiff_t kLowest = std::numeric_limits<std::int32_t>::min();
    EXPECT_TRUE(isTaken({kHighest, kLowest, kHighest}, list));
    for (std::ptrdiff_t const wide : {kHighest + 1, kLowest - 1, std::ptrdiff_t{1} << 32, -(std::ptrdiff_t{1} << 40)}) {
        EXPECT_FALSE(isTaken({wide, 1, 1}, list)) << wide;
        EXPECT_FALSE(isTaken({1, wide, 1}, list)) << wide;
        EXPECT_FALSE(isTaken({1, 1, wide}, list)) << wide;
    }
}

TEST_F(WrapGlobalImage, ADenseImageWithSlicesOfTwoToTheThirtyFirstVoxelsIsRefused) {
    unsigned char const voxel = 0;
    RecordingAggregator receiver;
    EXPECT_FALSE(wrapGlobal(Kade::CImage(&voxel, {65536, 32768, 2}), 1, list, receiver));
    EXPECT_TRUE(receiver.wasDrivenInOrder());
}

} // namespace
