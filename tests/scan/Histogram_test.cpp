// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NoiseGrid.h"

#include "src/scan/Histogram.h"

#include <gtest/gtest.h>

namespace {

using namespace tamo::scan;
using namespace tamo::test;

TEST(Histogram, UncutCellsFollowFromTheCutOnesAndTheForeground) {
    for (Noise const noise : kAllNoises) {
        for (Triple const& size : {Triple{1, 1, 1}, {2, 3, 4}, {1, 9, 2}, {12, 11, 10}}) {
            NoiseGrid const volume(size, {}, noise);
            Histogram const expected = cellsByLookingUp(volume.grid());
            Histogram histogram = expected;
            // What stands there before is of no account.
            histogram[0] = 77;
            histogram[255] = 99;
            addUncutCells(volume.grid().count, volume.foreground(), histogram);
            EXPECT_EQ(histogram, expected);
        }
    }
}

TEST(Histogram, AnEmptyGridHasAsManyEmptyCellsAsNumbersHold) {
    Histogram histogram{};
    addUncutCells({2097151, 2097151, 1048575}, 0, histogram);
    EXPECT_EQ(histogram[0], std::uint64_t{1} << 62U);
    EXPECT_EQ(histogram[255], 0U);
}

} // namespace
