// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "src/scan/CornerRow.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace {

using namespace tamo::scan;

constexpr std::int64_t kBlocks = 3;
constexpr std::int64_t kOctets = 4;

// Tiles of 24 lanes by 32 planes of any samples, which can be looked up one by one.
class Samples {
  public:
    explicit Samples(std::uint64_t seed) {
        std::mt19937_64 engine(seed);
        for (BitTile& tile : tiles) {
            tile = engine();
        }
    }

    // Below the lowest plane all is background.
    [[nodiscard]] unsigned int at(std::int64_t lane, std::int64_t plane) const {
        if (plane < 0) {
            return 0;
        }
        BitTile const tile = tiles[static_cast<std::size_t>(lane / 8 * kOctets + plane / 8)];
        return laneOf(tile, static_cast<unsigned int>(lane % 8)) >> static_cast<unsigned int>(plane % 8) & 1U;
    }

    std::array<BitTile, kBlocks * kOctets> tiles{};
};

unsigned int bitOf(BitTile tile, unsigned int lane, unsigned int plane) { return laneOf(tile, lane) >> plane & 1U; }

// Calls `visit(block, octet, lane, plane)` for all places whose next lane is in the row as well.
template <typename Visit> void forEachPlace(Visit const& visit) {
    for (std::int64_t block = 0; block + 1 < kBlocks; ++block) {
        for (std::int64_t octet = 0; octet < kOctets; ++octet) {
            for (unsigned int place = 0; place < 64; ++place) {
                visit(block, octet, place / 8, place % 8);
            }
        }
    }
}

TEST(CornerRow, AnyAndAllJoinEachLaneWithTheNext) {
    Samples const samples(1);
    CornerRow<0, 1> const row(samples.tiles.data(), kOctets);
    forEachPlace([&](std::int64_t block, std::int64_t octet, unsigned int lane, unsigned int plane) {
        unsigned int const own = samples.at(8 * block + lane, 8 * octet + plane);
        unsigned int const next = samples.at(8 * block + lane + 1, 8 * octet + plane);
        EXPECT_EQ(bitOf(row.any(block, octet), lane, plane), own | next);
        EXPECT_EQ(bitOf(row.all(block, octet), lane, plane), own & next);
    });
}

TEST(CornerRow, PutsItsPlanesAboveAndThoseBelowThemBelow) {
    Samples const samples(2);
    CornerRow<1, 3> const row(samples.tiles.data(), kOctets);
    forEachPlace([&](std::int64_t block, std::int64_t octet, unsigned int lane, unsigned int plane) {
        BitTile corners[8] = {};
        row.putCorners(block, octet, corners);
        for (unsigned int next = 0; next < 2; ++next) {
            std::int64_t const x = 8 * block + lane + next;
            std::int64_t const z = 8 * octet + plane;
            EXPECT_EQ(bitOf(corners[(next == 0 ? 1 : 3) + 4], lane, plane), samples.at(x, z));
            EXPECT_EQ(bitOf(corners[next == 0 ? 1 : 3], lane, plane), samples.at(x, z - 1));
        }
        EXPECT_EQ(corners[0] | corners[2] | corners[4] | corners[6], 0U);
    });
}

TEST(CornerRow, GivesOnePlaneWithAByteALane) {
    Samples const samples(3);
    CornerRow<2, 3> const row(samples.tiles.data(), kOctets);
    forEachPlace([&](std::int64_t block, std::int64_t /*octet*/, unsigned int lane, unsigned int plane) {
        unsigned int const own = samples.at(8 * block + lane, plane);
        unsigned int const next = samples.at(8 * block + lane + 1, plane);
        EXPECT_EQ(laneOf(row.cornersInPlane(block, plane), lane), own << 2U | next << 3U);
    });
}

} // namespace
