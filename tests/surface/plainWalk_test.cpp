// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/RecordingAggregator.h"
#include "support/oracle/ReferenceScan.h"
#include "support/oracle/plainWalk.h"
#include "support/volumes/PlainVolume.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace {

using namespace tamo::test;

// Compares the library with the walk that looks at one cell after the other, with which benchmarks compare its speed.
class PlainWalk : public testing::Test {
  protected:
    PlainWalk() { makeMarkedList(list); }

    // Fills a box of a volume: regions larger than what a scan looks at together, with some noise.
    tamo::plain::ScanArguments fill(PlainVolume& volume, Triple const& size, unsigned int step) {
        for (int z = 0; z < size[2]; ++z) {
            for (int y = 0; y < size[1]; ++y) {
                for (int x = 0; x < size[0]; ++x) {
                    bool const isNoise = engine() % 200 == 0;
                    bool const isInside = (x / 25 + y / 31 + z / 22) % 2 == 0;
                    volume.at(x, y, z) = isInside != isNoise ? 1 : 0;
                }
            }
        }
        return {volume.data(), volume.increments(), step, {1, 2, 0}, {size[0] - 1, size[1] - 2, size[2]}};
    }

    static bool count(tamo::plain::ScanArguments const& a, GLObjectList const& objects, GLDataInfo& info) {
        return getGLDataInfo(a.data, a.increments, a.step, a.origin, a.extent, objects, info);
    }

    static void expectEqual(GLDataInfo info, GLDataInfo expected) {
        EXPECT_EQ(info.primitives(), expected.primitives());
        EXPECT_EQ(info.triangles(), expected.triangles());
        EXPECT_EQ(info.vertices(), expected.vertices());
    }

    GLObjectList list;
    std::mt19937 engine{1};
};

constexpr std::array<std::size_t, 3> kOrders[] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
constexpr Triple kSizes[] = {{2, 3, 1},    {6, 7, 8},    {70, 60, 50}, {20, 150, 30},
                             {6, 90, 140}, {150, 5, 30}, {60, 140, 3}};

TEST_F(PlainWalk, VisitsTheCellsOfTheReference) {
    for (Triple const& size : kSizes) {
        PlainVolume volume({0, 0, 0}, size);
        tamo::plain::ScanArguments const a = fill(volume, size, 1);
        RecordingAggregator receiver;
        tamo::plain::wrapGlobal(a, list, receiver);
        EXPECT_TRUE(receiver.wasDrivenInOrder());
        ScanBox const box{1, {1, 2, 0}, {a.extent.x, a.extent.y, a.extent.z}};
        auto const valueAt = [&volume](int x, int y, int z) { return volume.at(x, y, z); };
        EXPECT_TRUE(receiver.emissions == ReferenceScan(box).emissions(valueAt)) << testing::PrintToString(size);
    }
}

TEST_F(PlainWalk, AgreesWithTheScanInEveryLayoutAndStep) {
    for (Triple const& size : kSizes) {
        for (auto const& order : kOrders) {
            VolumeLayout layout;
            layout.order = order;
            PlainVolume volume({0, 0, 0}, size, layout);
            for (unsigned int step = 1; step <= 3; ++step) {
                tamo::plain::ScanArguments const a = fill(volume, size, step);
                if (std::min({a.extent.x, a.extent.y, a.extent.z}) < static_cast<int>(step)) {
                    continue;
                }
                RecordingAggregator expected;
                tamo::plain::wrapGlobal(a, list, expected);
                RecordingAggregator seen;
                EXPECT_TRUE(wrapGlobal(a.data, a.increments, step, a.origin, a.extent, list, seen));
                EXPECT_TRUE(seen.emissions == expected.emissions) << testing::PrintToString(size) << " step " << step;
            }
        }
    }
}

// The list's objects have different numbers of polygons and vertices; those in slots 0 and 255 count for cells that no
// receiver gets.
TEST_F(PlainWalk, AgreesWithTheCountOfEveryConfiguration) {
    for (unsigned int c = 0; c < 256; ++c) {
        for (unsigned int i = 0; i < c * 5 % 7; ++i) {
            list[c]->push_back(std::make_unique<GLPolygon>(3 + (c + i) % 6).release());
        }
    }
    for (Triple const& size : kSizes) {
        for (auto const& order : kOrders) {
            VolumeLayout layout;
            layout.order = order;
            PlainVolume volume({0, 0, 0}, size, layout);
            tamo::plain::ScanArguments const a = fill(volume, size, 1);
            GLDataInfo info;
            EXPECT_TRUE(count(a, list, info));
            expectEqual(info, tamo::plain::getGLDataInfo(a, list));
        }
    }
}

TEST_F(PlainWalk, AgreesOnPolygonsOfEmptyAndFullCellsAlone) {
    for (unsigned int const slot : {0U, 255U}) {
        GLObjectList lone;
        for (unsigned int c = 0; c < 256; ++c) {
            lone.push_back(std::make_unique<GLObject>().release());
        }
        lone[slot]->push_back(std::make_unique<GLPolygon>(5).release());
        for (Triple const& size : kSizes) {
            PlainVolume volume({0, 0, 0}, size);
            tamo::plain::ScanArguments const a = fill(volume, size, 1);
            GLDataInfo info;
            EXPECT_TRUE(count(a, lone, info));
            expectEqual(info, tamo::plain::getGLDataInfo(a, lone));
            EXPECT_EQ(info.primitives(), tamo::plain::countCells(a)[slot]);
        }
    }
}

} // namespace
