// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/StreamCapture.h"
#include "support/oracle/ReferenceScan.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/TAMO.h>

#include <Kade/CImage.h>

#include <gtest/gtest.h>

#include <iostream>
#include <memory>
#include <random>

namespace {

using namespace tamo::test;

struct Counts {
    std::size_t primitives = 0;
    std::size_t triangles = 0;
    std::size_t vertices = 0;

    void add(GLObject const& object) {
        for (GLPolygon const* polygon : object) {
            primitives += 1;
            triangles += polygon->size() - 2;
            vertices += polygon->size();
        }
    }
};

struct CountingAggregator : IPolygonAggregator {
    void fetch(GLObject& object, GLCoord3f const& /*offset*/) override { counts.add(object); }
    void fetch(GLObject& object) override { counts.add(object); }
    Counts counts;
};

void expectCounts(GLDataInfo info, Counts const& counts) {
    EXPECT_EQ(info.primitives(), counts.primitives);
    EXPECT_EQ(info.triangles(), counts.triangles);
    EXPECT_EQ(info.vertices(), counts.vertices);
}

void addPolygon(GLObjectList& list, unsigned int slot, unsigned int vertices) {
    list[slot]->push_back(std::make_unique<GLPolygon>(vertices).release());
}

void makeEmptyList(GLObjectList& list, unsigned int slots = 256) {
    list.clear();
    for (unsigned int c = 0; c < slots; ++c) {
        list.push_back(std::make_unique<GLObject>().release());
    }
}

PlainVolume makeNoise(Triple const& size, unsigned int seed) {
    PlainVolume volume = PlainVolume::filled(size, 0);
    std::mt19937 engine(seed);
    for (int z = 0; z < size[2]; ++z) {
        for (int y = 0; y < size[1]; ++y) {
            for (int x = 0; x < size[0]; ++x) {
                volume.at(x, y, z) = engine() % 3 == 0 ? 1 : 0;
            }
        }
    }
    return volume;
}

class GetGLDataInfo : public testing::Test {
  protected:
    bool count(PlainVolume const& volume, ScanBox const& box) {
        return getGLDataInfo(volume.data(), volume.increments(), box.step, toVec3(box.origin), toVec3(box.extent), list,
                             info);
    }

    GLObjectList list;
    GLDataInfo info;
};

TEST_F(GetGLDataInfo, EqualsWhatAReceiverCounts) {
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    PlainVolume volume = makeNoise({23, 19, 17}, 5);
    volume.at(5, 5, 5) = 1;
    for (unsigned int step = 1; step <= 4; ++step) {
        SCOPED_TRACE(step);
        for (ScanBox const& box : {ScanBox{step, {0, 0, 0}, {23, 19, 17}}, ScanBox{step, {3, 2, 1}, {4, 16, 9}},
                                   ScanBox{step, {5, 5, 5}, {4, 4, 4}}}) {
            CountingAggregator receiver;
            EXPECT_TRUE(wrapGlobal(volume.data(), volume.increments(), step, toVec3(box.origin), toVec3(box.extent),
                                   list, receiver));
            EXPECT_TRUE(count(volume, box));
            expectCounts(info, receiver.counts);
            EXPECT_GT(info.primitives(), 0U);
        }
    }
}

// Slots 0 and 255 never reach a receiver, yet they count.
TEST_F(GetGLDataInfo, EveryCellCountsWhateverItsConfiguration) {
    makeEmptyList(list);
    for (unsigned int c = 0; c < 256; ++c) {
        for (unsigned int i = 0; i < (c * 5 + 2) % 7; ++i) {
            addPolygon(list, c, 3 + (c + i) % 6);
        }
    }
    PlainVolume volume = makeNoise({21, 18, 15}, 6);
    for (int i = 0; i < 5 * 5 * 5; ++i) {
        volume.at(i % 5, i / 5 % 5, i / 25) = 1;
    }
    ScanBox const box{1, {0, 0, 0}, {21, 18, 15}};
    Counts expected;
    for (Emission const &cell : ReferenceScan(box).allCells([&](int x, int y, int z) { return volume.at(x, y, z); })) {
        expected.add(*list[cell.configuration]);
    }
    EXPECT_TRUE(count(volume, box));
    expectCounts(info, expected);
}

TEST_F(GetGLDataInfo, CellsOfConfigurations0And255Count) {
    makeEmptyList(list);
    addPolygon(list, 0, 3);
    addPolygon(list, 255, 7);
    EXPECT_TRUE(count(PlainVolume::filled({4, 5, 6}, 0), {1, {0, 0, 0}, {4, 5, 6}}));
    expectCounts(info, {5 * 6 * 7, 5 * 6 * 7, 3 * 5 * 6 * 7});
    EXPECT_TRUE(count(PlainVolume::filled({4, 5, 6}, 1), {1, {0, 0, 0}, {4, 5, 6}}));
    expectCounts(info, {3 * 4 * 5, 5 * 3 * 4 * 5, 7 * 3 * 4 * 5});
}

TEST_F(GetGLDataInfo, BackgroundCountsNothingAndTellsTheBox) {
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    info = GLDataInfo({9, 9, 9}, {9, 9, 9}, 9, 9, 9, 9);
    EXPECT_TRUE(count(PlainVolume::filled({9, 9, 9}, 0), {2, {1, 2, 3}, {8, 7, 6}}));
    expectCounts(info, {});
    EXPECT_EQ(info.offset(), (GLtVec3<int>{1, 2, 3}));
    EXPECT_EQ(info.size(), (GLtVec3<int>{8, 7, 6}));
    EXPECT_EQ(info.step(), 2U);
}

TEST_F(GetGLDataInfo, ASingleVoxelCountsTheObjectsOfItsEightCorners) {
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    Counts expected;
    for (unsigned int const corner : {1U, 2U, 4U, 8U, 16U, 32U, 64U, 128U}) {
        expected.add(*list[corner]);
    }
    PlainVolume volume = PlainVolume::filled({3, 3, 3}, 0);
    volume.at(1, 1, 1) = 1;
    EXPECT_TRUE(count(volume, {1, {0, 0, 0}, {3, 3, 3}}));
    expectCounts(info, expected);
}

TEST_F(GetGLDataInfo, PolygonsOfTwoVerticesCountWithoutATriangle) {
    makeEmptyList(list);
    addPolygon(list, 255, 2);
    addPolygon(list, 255, 2);
    // 2 x 2 x 2 full cells.
    EXPECT_TRUE(count(PlainVolume::filled({3, 3, 3}, 1), {1, {0, 0, 0}, {3, 3, 3}}));
    expectCounts(info, {2 * 8, 0, 2 * 2 * 8});
}

TEST_F(GetGLDataInfo, FewerThanTwoVerticesWrapInThirtyTwoBits) {
    makeEmptyList(list);
    addPolygon(list, 0, 0);
    addPolygon(list, 0, 1);
    addPolygon(list, 0, 2);
    // 4 x 4 x 4 cells; -2 and -1 as unsigned 32-bit numbers, widened before they are multiplied.
    EXPECT_TRUE(count(PlainVolume::filled({3, 3, 3}, 0), {1, {0, 0, 0}, {3, 3, 3}}));
    std::size_t const triangles = 64 * (std::size_t{4294967294U} + std::size_t{4294967295U});
    expectCounts(info, {3 * 64, triangles, triangles + 2 * 3 * 64});
}

TEST_F(GetGLDataInfo, RefusedCallsLeaveTheRecordUnchanged) {
    PlainVolume const volume = PlainVolume::filled({4, 4, 4}, 1);
    StreamCapture const messages(std::cerr);
    auto const isRefused = [&](unsigned char const* data, unsigned int step, Triple const& extent) {
        info = GLDataInfo({1, 2, 3}, {4, 5, 6}, 7, 8, 9, 10);
        bool const result = getGLDataInfo(data, volume.increments(), step, {0, 0, 0}, toVec3(extent), list, info);
        expectCounts(info, {10, 8, 9});
        return !result && info.offset() == GLtVec3<int>{1, 2, 3} && info.size() == GLtVec3<int>{4, 5, 6} &&
               info.step() == 7;
    };
    makeEmptyList(list);
    EXPECT_TRUE(isRefused(volume.data(), 0, {4, 4, 4})) << "step 0";
    EXPECT_TRUE(isRefused(volume.data(), 4, {3, 4, 4})) << "step beyond x";
    EXPECT_TRUE(isRefused(volume.data(), 4, {4, 3, 4})) << "step beyond y";
    EXPECT_TRUE(isRefused(volume.data(), 4, {4, 4, 3})) << "step beyond z";
    EXPECT_TRUE(isRefused(volume.data(), 1, {0, 4, 4})) << "no extent";
    EXPECT_TRUE(isRefused(nullptr, 1, {4, 4, 4})) << "no data";
    for (unsigned int const slots : {0U, 1U, 255U, 257U}) {
        makeEmptyList(list, slots);
        EXPECT_TRUE(isRefused(volume.data(), 1, {4, 4, 4})) << slots << " slots";
    }
    EXPECT_EQ(messages.text(), "");
}

TEST_F(GetGLDataInfo, TheBoxMayComeFromTheRecordItself) {
    makeEmptyList(list);
    addPolygon(list, 0, 3);
    info.offset() = {1, 1, 1};
    info.size() = {2, 3, 4};
    PlainVolume const volume = PlainVolume::filled({5, 5, 5}, 0);
    EXPECT_TRUE(getGLDataInfo(volume.data(), volume.increments(), 1, info.offset(), info.size(), list, info));
    EXPECT_EQ(info.offset(), (GLtVec3<int>{1, 1, 1}));
    EXPECT_EQ(info.size(), (GLtVec3<int>{2, 3, 4}));
    EXPECT_EQ(info.primitives(), 3U * 4U * 5U);
}

TEST_F(GetGLDataInfo, AnImageIsCountedAsAWhole) {
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    Triple const size = {8, 7, 6};
    PlainVolume const volume = makeNoise(size, 8);
    EXPECT_TRUE(count(volume, {2, {0, 0, 0}, size}));
    GLDataInfo ofImage;
    Kade::CImage const image(volume.data(), toVec3(size));
    EXPECT_TRUE(getGLDataInfo(image, 2, list, ofImage));
    expectCounts(ofImage, {info.primitives(), info.triangles(), info.vertices()});
    EXPECT_EQ(ofImage.offset(), (GLtVec3<int>{0, 0, 0}));
    EXPECT_EQ(ofImage.size(), toVec3(size));
    EXPECT_EQ(ofImage.step(), 2U);
    EXPECT_FALSE(getGLDataInfo(image, 7, list, ofImage));
    EXPECT_EQ(ofImage.step(), 2U);
}

TEST_F(GetGLDataInfo, AnImagesOwnIncrementsAreUsed) {
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    VolumeLayout layout;
    layout.order = {1, 2, 0};
    layout.backwards = {false, true, true};
    layout.gap = 2;
    PlainVolume volume({0, 0, 0}, {4, 5, 6}, layout);
    for (int i = 0; i < 4 * 5 * 6; ++i) {
        volume.at(i % 4, i / 4 % 5, i / 20) = i % 3 == 0 ? 1 : 0;
    }
    EXPECT_TRUE(count(volume, {1, {0, 0, 0}, {4, 5, 6}}));
    auto const [x, y, z] = volume.increments();
    GLDataInfo ofImage;
    EXPECT_TRUE(getGLDataInfo(Kade::CImage(volume.data(), {4, 5, 6}, {x, y, z}), 1, list, ofImage));
    expectCounts(ofImage, {info.primitives(), info.triangles(), info.vertices()});
}

} // namespace
