// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/statistics/forEachRow.h"

#include "volume/support/makeVolume.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using tamo::volume::forEachRow;
using tamo::volume::Volume;

Volume countingVolume() {
    return makeVolume<std::int32_t>(
        {4, 3, 2}, [](auto x, auto y, auto z) { return static_cast<std::int32_t>(x + 10 * y + 100 * z); });
}

std::vector<std::int32_t> rowsOf(Volume const& volume) {
    std::vector<std::int32_t> values;
    forEachRow<std::int32_t>(
        volume, [&](std::int32_t const* row, auto, auto) { values.insert(values.end(), row, row + volume.size()[0]); },
        {});
    return values;
}

TEST(ForEachRow, GoesThroughRowsAsTheyStand) {
    std::vector<std::int32_t> const values = rowsOf(countingVolume());
    ASSERT_EQ(values.size(), 24U);
    EXPECT_EQ(values.front(), 0);
    EXPECT_EQ(values[5], 11);
    EXPECT_EQ(values.back(), 123);
}

TEST(ForEachRow, GathersVoxelsThatLieApartOrBackwards) {
    Volume volume = countingVolume();
    // z fastest, y, and x from its end: a view as arrays have.
    volume.voxels += 3 * volume.increments[0];
    volume.increments = {volume.increments[2], volume.increments[1], -volume.increments[0]};
    volume.header.size = {2, 3, 4};
    volume.box = tamo::volume::wholeOf({2, 3, 4});
    std::vector<std::int32_t> const values = rowsOf(volume);
    EXPECT_EQ(values[0], 3);
    EXPECT_EQ(values[1], 103);
    EXPECT_EQ(values[2], 13);
    EXPECT_EQ(values.back(), 120);
}

TEST(ForEachRow, ReportsEverySliceAndStopsWhereItIsTold) {
    int slices = 0;
    EXPECT_THROW(forEachRow<std::int32_t>(
                     countingVolume(), [](auto const*, auto, auto) {},
                     [&slices](double fraction) {
                         ++slices;
                         return fraction < 1;
                     }),
                 tamo::volume::Cancelled);
    EXPECT_EQ(slices, 2);
}

} // namespace
