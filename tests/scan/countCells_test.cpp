// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NoiseGrid.h"
#include "support/memory/FailingNew.h"

#include "src/scan/countCells.h"

#include <gtest/gtest.h>

namespace {

using namespace tamo::scan;
using namespace tamo::test;

void expectCounts(NoiseGrid const& volume) {
    SampleGrid const grid = volume.grid();
    SCOPED_TRACE(testing::Message() << grid.count.x << " x " << grid.count.y << " x " << grid.count.z);
    Histogram expected = cellsByLookingUp(grid);
    EXPECT_EQ(countCells(grid, CountedCells::kAll), expected);
    Histogram cut = countCells(grid, CountedCells::kCut);
    cut[0] = expected[0];
    cut[255] = expected[255];
    EXPECT_EQ(cut, expected);
}

TEST(CountCells, AreAsManyAsLookedUp) {
    for (VolumeLayout const& layout : plainLayouts()) {
        for (Noise const noise : kAllNoises) {
            for (Triple const& size : {Triple{5, 4, 3}, {15, 15, 15}, {16, 15, 17}, {40, 9, 3}, {2, 90, 30}}) {
                expectCounts(NoiseGrid(size, layout, noise));
            }
        }
    }
}

TEST(CountCells, OfRowsAreAsManyAsLookedUp) {
    for (Triple const& size : {Triple{3000, 1, 1}, {1, 3000, 1}, {1, 1, 3000}, {2, 2, 3000}, {900, 2, 1}}) {
        for (VolumeLayout const& layout : plainLayouts()) {
            expectCounts(NoiseGrid(size, layout));
        }
    }
}

TEST(CountCells, AreTheSameWithoutMemory) {
    for (VolumeLayout const& layout : plainLayouts(/*spacing=*/2)) {
        for (Noise const noise : kAllNoises) {
            NoiseGrid const volume({57, 49, 50}, layout, noise);
            for (CountedCells const wanted : {CountedCells::kAll, CountedCells::kCut}) {
                Histogram const expected = cellsByLookingUp(volume.grid());
                Histogram histogram{};
                {
                    FailingNew const failing(1);
                    histogram = countCells(volume.grid(), wanted);
                }
                EXPECT_TRUE(FailingNew::hasFailed());
                if (wanted == CountedCells::kCut) {
                    histogram[0] = expected[0];
                    histogram[255] = expected[255];
                }
                EXPECT_EQ(histogram, expected);
            }
        }
    }
}

TEST(CountCells, OfSmallAndOfThinGridsTakeNoMemory) {
    NoiseGrid const small({15, 15, 15});
    NoiseGrid const row({3000, 1, 1});
    FailingNew const counter;
    countCells(small.grid(), CountedCells::kAll);
    countCells(row.grid(), CountedCells::kAll);
    EXPECT_EQ(FailingNew::allocations(), 0U);
}

} // namespace
