// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NoiseGrid.h"

#include "src/scan/AxisOrder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using namespace tamo::scan;
using namespace tamo::test;

TEST(AxisOrder, TheDensestAxisComesFirst) {
    for (VolumeLayout const& layout : plainLayouts()) {
        NoiseGrid const volume({8, 9, 10}, layout);
        SampleGrid const grid = AxisOrder(volume.grid()).grid();
        EXPECT_EQ(grid.first, volume.grid().first);
        EXPECT_LT(std::abs(grid.stride.x), std::abs(grid.stride.y));
        EXPECT_LT(std::abs(grid.stride.y), std::abs(grid.stride.z));
        EXPECT_EQ(grid.count.x * grid.count.y * grid.count.z, 8 * 9 * 10);
        std::int64_t const fastest = std::array<std::int64_t, 3>{8, 9, 10}[layout.order[0]];
        EXPECT_EQ(grid.count.x, fastest);
    }
}

// Runs need eight samples along the first axis, and planes come by the eight.
TEST(AxisOrder, ShortAxesGiveWay) {
    for (VolumeLayout const& layout : plainLayouts()) {
        for (Triple const& size : {Triple{7, 8, 30}, {30, 7, 8}, {8, 30, 7}, {3, 2, 8}, {8, 1, 7}, {2, 20, 3}}) {
            NoiseGrid const volume(size, layout);
            SampleGrid const grid = AxisOrder(volume.grid()).grid();
            int const longAxes =
                static_cast<int>(size[0] >= 8) + static_cast<int>(size[1] >= 8) + static_cast<int>(size[2] >= 8);
            EXPECT_GE(grid.count.x, 8);
            EXPECT_TRUE(longAxes == 1 || grid.count.z >= 8) << size[0] << " x " << size[1] << " x " << size[2];
        }
    }
}

TEST(AxisOrder, TheHistogramOfTheOriginalIsThatOfLookingUp) {
    for (VolumeLayout const& layout : plainLayouts()) {
        for (Triple const& size : {Triple{10, 9, 8}, {2, 9, 17}, {9, 3, 3}, {9, 30, 1}, {5, 6, 12}}) {
            NoiseGrid const volume(size, layout);
            AxisOrder const order(volume.grid());
            EXPECT_EQ(order.inOriginalAxes(cellsByLookingUp(order.grid())), cellsByLookingUp(volume.grid()));
        }
    }
}

} // namespace
