// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "src/scan/SlabRing.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace tamo::scan;

TEST(SlabRing, ASlabTakesThePlaceOfTheOneSizeSlabsBefore) {
    for (std::int64_t size = 1; size < 5; ++size) {
        std::vector<BitTile> tiles(static_cast<std::size_t>(size * 6));
        SlabRing const ring = {tiles.data(), size, 6, 3};
        for (std::int64_t y = 0; y < 20; ++y) {
            EXPECT_EQ(ring.slab(y), &tiles[static_cast<std::size_t>(y % size * 6)]);
        }
    }
}

TEST(SlabRing, EachTileHasItsPlaceInTheNextSlab) {
    for (std::int64_t size = 1; size < 5; ++size) {
        std::vector<BitTile> tiles(static_cast<std::size_t>(size * 6));
        SlabRing const ring = {tiles.data(), size, 6, 3};
        for (std::int64_t y = 0; y < 20; ++y) {
            for (std::int64_t i = 0; i < 6; ++i) {
                EXPECT_EQ(ring.inNextSlab(ring.slab(y) + i), ring.slab(y + 1) + i);
            }
        }
    }
}

} // namespace
