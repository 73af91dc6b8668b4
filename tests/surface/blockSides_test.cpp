// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/RecordingAggregator.h"
#include "support/oracle/ReferenceScan.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace tamo::test;

// Volumes whose sides lie just below, at and above the sizes of the blocks in which a scan reads and looks at samples,
// with the axes in memory in each order.
class BlockSides : public testing::TestWithParam<std::array<std::size_t, 3>> {
  protected:
    BlockSides() {
        makeMarkedList(list, 256, 1);
        makeMarkedList(cutCells, 256, 1);
        cutCells[0]->clear();
        cutCells[255]->clear();
    }

    // Scans and counts a volume of random voxels, in which whole blocks are alike as well, and compares with the slow
    // scan.
    void checkSamples(Triple const& samples, VolumeLayout const& layout, unsigned int step = 1, int lowest = 0) {
        int const edge = static_cast<int>(step);
        Triple const origin = {lowest, lowest, lowest};
        Triple const extent = {samples[0] * edge, samples[1] * edge, samples[2] * edge};
        PlainVolume volume({0, 0, 0}, {lowest + extent[0], lowest + extent[1], lowest + extent[2]}, layout);
        for (int z = 0; z < samples[2]; ++z) {
            for (int y = 0; y < samples[1]; ++y) {
                for (int x = 0; x < samples[0]; ++x) {
                    bool const isNoise = engine() % 16 == 0;
                    bool const isInside = (x + y) / 12 % 2 == z / 20 % 2;
                    volume.at(lowest + x * edge, lowest + y * edge, lowest + z * edge) = isInside != isNoise ? 1 : 0;
                }
            }
        }
        ScanBox const box{step, origin, extent};
        RecordingAggregator receiver;
        EXPECT_TRUE(
            wrapGlobal(volume.data(), volume.increments(), step, toVec3(origin), toVec3(extent), list, receiver));
        auto const valueAt = [&volume](int x, int y, int z) { return volume.at(x, y, z); };
        SCOPED_TRACE(testing::PrintToString(samples) + " spacing " + std::to_string(layout.spacing) + " step " +
                     std::to_string(step) + " from " + std::to_string(lowest));
        Emissions const expected = ReferenceScan(box).emissions(valueAt);
        // Not by EXPECT_EQ: it would print every cell.
        EXPECT_TRUE(receiver.emissions == expected);
        checkCount(volume, box, cutCells, expected);
        checkCount(volume, box, list, ReferenceScan(box).allCells(valueAt));
    }

    static void checkCount(PlainVolume const& volume, ScanBox const& box, GLObjectList const& objects,
                           Emissions const& counted) {
        GLDataInfo info;
        EXPECT_TRUE(getGLDataInfo(volume.data(), volume.increments(), box.step, toVec3(box.origin), toVec3(box.extent),
                                  objects, info));
        std::size_t triangles = 0;
        for (Emission const& cell : counted) {
            triangles += 1 + cell.configuration;
        }
        EXPECT_EQ(info.primitives(), counted.size());
        EXPECT_EQ(info.triangles(), triangles);
    }

    [[nodiscard]] VolumeLayout layout(bool isBackwards = false, int spacing = 1) const {
        VolumeLayout made;
        made.order = GetParam();
        made.backwards = {isBackwards, isBackwards, isBackwards};
        made.spacing = spacing;
        return made;
    }

    // Objects that differ in how much they count, one in each slot, and the same without those of empty and full cells.
    GLObjectList list;
    GLObjectList cutCells;
    std::mt19937 engine{1};
};

std::string nameOfOrder(testing::TestParamInfo<std::array<std::size_t, 3>> const& info) {
    std::string name;
    for (std::size_t const axis : info.param) {
        name += "XYZ"[axis];
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(AxisOrders, BlockSides,
                         testing::Values(std::array<std::size_t, 3>{0, 1, 2}, std::array<std::size_t, 3>{0, 2, 1},
                                         std::array<std::size_t, 3>{1, 0, 2}, std::array<std::size_t, 3>{1, 2, 0},
                                         std::array<std::size_t, 3>{2, 0, 1}, std::array<std::size_t, 3>{2, 1, 0}),
                         nameOfOrder);

// Tiles have a side of 8; volumes of few columns and up to 15 planes are scanned by other means.
TEST_P(BlockSides, AllSidesAroundOneAndTwoTiles) {
    constexpr int kSides[] = {7, 8, 9, 15, 16, 17};
    for (int const x : kSides) {
        for (int const y : kSides) {
            for (int const z : kSides) {
                checkSamples({x, y, z}, layout());
            }
        }
    }
}

// Eight tiles are looked at together.
TEST_P(BlockSides, EachSideAroundEightTilesAndTheirMultiples) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (int const side : {55, 56, 57, 63, 64, 65, 119, 120, 127, 128, 129}) {
            Triple samples = {9, 10, 11};
            samples[axis] = side;
            checkSamples(samples, layout());
            checkSamples(samples, layout(true));
        }
    }
}

// Up to 128 slabs are read at once, fewer by the first read, up to where the rows' lines of memory begin.
TEST_P(BlockSides, RowsAroundTheEndsOfReads) {
    for (int const side : {126, 127, 128, 129, 135, 136, 137, 255, 256, 257}) {
        for (int const lowest : {0, 1, 7, 8, 50, 111, 112, 113}) {
            checkSamples({9, side, 8}, layout(), 1, lowest);
            checkSamples({8, side, 9}, layout(true), 1, lowest);
        }
    }
}

// Sides too short for a run of samples: runs go along the next axis, with rows of any length between its samples.
TEST_P(BlockSides, ThinVolumes) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (int const side : {1, 2, 7, 8}) {
            for (int const distance : {1, 2, 21}) {
                Triple samples = {12, 13, 14};
                samples[axis] = side;
                samples[(axis + 1) % 3] = 137;
                checkSamples(samples, layout(false, distance));
                std::swap(samples[(axis + 1) % 3], samples[(axis + 2) % 3]);
                checkSamples(samples, layout(true, distance));
            }
        }
    }
    checkSamples({1, 1, 300}, layout());
    checkSamples({1, 300, 1}, layout());
    checkSamples({300, 1, 1}, layout(true));
}

// Around the largest volumes that are kept as a whole.
TEST_P(BlockSides, SmallVolumesAroundTheirLimits) {
    for (Triple const& samples : {Triple{13, 18, 15},
                                  {18, 13, 15},
                                  {18, 13, 16},
                                  {18, 14, 15},
                                  {98, 1, 15},
                                  {99, 1, 15},
                                  {1, 98, 2},
                                  {1, 99, 2},
                                  {2, 30, 2},
                                  {100, 1, 1},
                                  {1, 100, 1}}) {
        checkSamples(samples, layout());
        checkSamples(samples, layout(true, 3), 2, 1);
    }
}

// Samples up to four apart are read together, those farther apart one by one.
TEST_P(BlockSides, SamplesApartInMemoryAroundTheEndsOfTilesAndReads) {
    for (int const distance : {2, 3, 4, 5, 7, 8, 9, 63, 64, 70}) {
        for (int const side : {8, 9, 16, 17, 129}) {
            checkSamples({10, side, 9}, layout(false, distance));
            checkSamples({9, side, 10}, layout(true, distance));
        }
    }
    for (unsigned int const step : {2U, 3U, 4U, 5U}) {
        for (int const side : {8, 9, 17, 65, 129}) {
            checkSamples({side, 9, 8}, layout(), step, 3);
            checkSamples({8, side, 9}, layout(true), step, 3);
            checkSamples({9, 8, side}, layout(), step, 3);
        }
    }
}

} // namespace
