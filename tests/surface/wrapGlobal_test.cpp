// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/RecordingAggregator.h"
#include "support/StreamCapture.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <set>

namespace {

using namespace tamo::test;

class WrapGlobal : public testing::Test {
  protected:
    WrapGlobal() { makeMarkedList(list); }

    // Scans voxels (0, 0, 0) to `extent` - 1 and returns what the receiver got.
    Emissions scan(PlainVolume const& volume, unsigned int step, Triple const& extent) {
        EXPECT_TRUE(wrapGlobal(volume.data(), volume.increments(), step, {0, 0, 0}, toVec3(extent), list, receiver));
        EXPECT_TRUE(receiver.wasDrivenInOrder());
        return receiver.emissions;
    }

    GLObjectList list;
    RecordingAggregator receiver;
};

std::set<float> zPositions(Emissions const& emissions) {
    std::set<float> positions;
    for (Emission const& e : emissions) {
        positions.insert(e.position.z);
    }
    return positions;
}

TEST_F(WrapGlobal, BackgroundEmitsNothing) {
    EXPECT_TRUE(scan(PlainVolume::filled({5, 4, 3}, 0), 1, {5, 4, 3}).empty());
}

TEST_F(WrapGlobal, SingleVoxelEmitsTheEightCellsThatHaveItAsACorner) {
    PlainVolume volume = PlainVolume::filled({5, 5, 5}, 0);
    volume.at(2, 1, 3) = 1;
    Emissions const expected = {
        {128, {1, 0, 2}}, {64, {2, 0, 2}}, {32, {1, 1, 2}}, {16, {2, 1, 2}},
        {8, {1, 0, 3}},   {4, {2, 0, 3}},  {2, {1, 1, 3}},  {1, {2, 1, 3}},
    };
    Emissions const seen = scan(volume, 1, {5, 5, 5});
    EXPECT_EQ(seen.size(), expected.size());
    EXPECT_TRUE(std::is_permutation(seen.begin(), seen.end(), expected.begin(), expected.end()));
}

TEST_F(WrapGlobal, AVolumeOfOneVoxelIsWalkedCornerColumnByCornerColumn) {
    Emissions const expected = {
        {128, {-1, -1, -1}}, {32, {-1, 0, -1}}, {64, {0, -1, -1}}, {16, {0, 0, -1}},
        {8, {-1, -1, 0}},    {2, {-1, 0, 0}},   {4, {0, -1, 0}},   {1, {0, 0, 0}},
    };
    EXPECT_EQ(scan(PlainVolume::filled({1, 1, 1}, 1), 1, {1, 1, 1}), expected);
}

TEST_F(WrapGlobal, ForegroundIsClosedAtTheFacesOfTheBox) {
    constexpr unsigned int kSide = 4;
    Emissions const seen = scan(PlainVolume::filled({kSide, kSide, kSide}, 1), 1, {kSide, kSide, kSide});
    constexpr unsigned int kAll = (kSide + 1) * (kSide + 1) * (kSide + 1);
    constexpr unsigned int kInner = (kSide - 1) * (kSide - 1) * (kSide - 1);
    EXPECT_EQ(seen.size(), kAll - kInner);
    for (Emission const& e : seen) {
        EXPECT_NE(e.configuration, 255U);
        auto const isOuter = [](float position) { return position == -1.0F || position == kSide - 1.0F; };
        EXPECT_TRUE(isOuter(e.position.x) || isOuter(e.position.y) || isOuter(e.position.z)) << e;
    }
}

TEST_F(WrapGlobal, AnAxisWithOneSampleHasTheCellsAtMinusStepAndZero) {
    for (int extent = 3; extent < 6; ++extent) {
        receiver = RecordingAggregator();
        PlainVolume const volume = PlainVolume::filled({9, 9, extent}, 1);
        EXPECT_EQ(zPositions(scan(volume, 3, {9, 9, extent})), (std::set<float>{-3.0F, 0.0F}));
    }
}

TEST_F(WrapGlobal, CoordinatesBeyondTheLastWholeStepAreNotSampled) {
    PlainVolume volume = PlainVolume::filled({2, 2, 11}, 1);
    volume.at(0, 0, 10) = PlainVolume::kFiller;
    EXPECT_EQ(zPositions(scan(volume, 2, {2, 2, 11})), (std::set<float>{-2.0F, 0.0F, 2.0F, 4.0F, 6.0F, 8.0F}));
}

TEST_F(WrapGlobal, RefusedArgumentsStillStartAndFinish) {
    PlainVolume const volume = PlainVolume::filled({4, 4, 4}, 1);
    StreamCapture const messages(std::cerr);
    auto const isRefused = [&](unsigned char const* data, unsigned int step, Triple const& extent) {
        RecordingAggregator refused;
        bool const result = wrapGlobal(data, volume.increments(), step, {0, 0, 0}, toVec3(extent), list, refused);
        return !result && refused.wasDrivenInOrder() && refused.emissions.empty();
    };
    EXPECT_TRUE(isRefused(volume.data(), 0, {4, 4, 4})) << "step 0";
    EXPECT_TRUE(isRefused(volume.data(), 4, {3, 4, 4})) << "step beyond x";
    EXPECT_TRUE(isRefused(volume.data(), 4, {4, 3, 4})) << "step beyond y";
    EXPECT_TRUE(isRefused(volume.data(), 4, {4, 4, 3})) << "step beyond z";
    EXPECT_TRUE(isRefused(volume.data(), 1, {4, 4, 0})) << "no extent";
    EXPECT_TRUE(isRefused(nullptr, 1, {4, 4, 4})) << "no data";
    EXPECT_FALSE(isRefused(volume.data(), 4, {4, 4, 4})) << "step as large as the box";
    EXPECT_EQ(messages.text(), "");
}

TEST_F(WrapGlobal, ListsWithoutExactly256SlotsAreRefused) {
    PlainVolume const volume = PlainVolume::filled({2, 2, 2}, 1);
    StreamCapture const messages(std::cerr);
    for (unsigned int const slots : {0U, 1U, 255U, 257U, 512U}) {
        SCOPED_TRACE(slots);
        makeMarkedList(list, slots);
        for (unsigned int const step : {1U, 2U}) {
            RecordingAggregator refused;
            EXPECT_FALSE(wrapGlobal(volume.data(), volume.increments(), step, {0, 0, 0}, {2, 2, 2}, list, refused));
            EXPECT_TRUE(refused.wasDrivenInOrder());
            EXPECT_TRUE(refused.emissions.empty());
        }
        EXPECT_EQ(list.size(), slots);
    }
    EXPECT_EQ(messages.text(), "");
}

TEST_F(WrapGlobal, ValuesBeyondOneAreNeitherCheckedNorHarmful) {
    PlainVolume volume = PlainVolume::filled({7, 6, 5}, 0);
    unsigned char value = 0;
    for (int z = 0; z < 5; ++z) {
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 7; ++x) {
                volume.at(x, y, z) = value;
                value = static_cast<unsigned char>(value + 37);
            }
        }
    }
    EXPECT_FALSE(scan(volume, 1, {7, 6, 5}).empty());
}

TEST_F(WrapGlobal, ReceiversOwnExceptionsPassThrough) {
    struct Refusing : RecordingAggregator {
        void fetch(GLObject& /*object*/, GLCoord3f const& /*offset*/) override { throw 42; }
    };
    PlainVolume const volume = PlainVolume::filled({4, 4, 4}, 1);
    for (unsigned int const step : {1U, 2U}) {
        Refusing refusing;
        EXPECT_THROW(wrapGlobal(volume.data(), volume.increments(), step, {0, 0, 0}, {4, 4, 4}, list, refusing), int);
    }
}

} // namespace
