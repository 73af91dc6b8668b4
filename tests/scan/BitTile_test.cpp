// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "src/scan/BitTile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <random>
#include <vector>

namespace {

using namespace tamo::scan;

bool bitOf(BitTile tile, unsigned int lane, unsigned int plane) { return (tile >> (8 * lane + plane) & 1U) != 0; }

// Every tile of a single bit, none, all, and some of many bits.
std::vector<BitTile> sampleTiles() {
    std::vector<BitTile> tiles = {0, ~BitTile{0}};
    for (unsigned int i = 0; i < 64; ++i) {
        tiles.push_back(BitTile{1} << i);
    }
    std::mt19937_64 random(8);
    for (int i = 0; i < 64; ++i) {
        tiles.push_back(random());
    }
    return tiles;
}

// Calls `check(lane, plane)` for each of a tile's places.
template <typename Check> void forEachPlace(Check const& check) {
    for (unsigned int lane = 0; lane < 8; ++lane) {
        for (unsigned int plane = 0; plane < 8; ++plane) {
            check(lane, plane);
        }
    }
}

TEST(BitTile, TilesCoverTheSamplesAndNoTileIsEmpty) {
    for (std::int64_t samples = 0; samples < 100; ++samples) {
        EXPECT_GE(8 * tilesFor(samples), samples);
        EXPECT_LT(8 * tilesFor(samples), samples + 8);
    }
}

TEST(BitTile, LanesAreBytesAndPlanesTheirBits) {
    for (BitTile const tile : sampleTiles()) {
        forEachPlace([&](unsigned int lane, unsigned int plane) {
            EXPECT_EQ((laneOf(tile, lane) >> plane & 1U) != 0, bitOf(tile, lane, plane));
            EXPECT_LT(laneOf(tile, lane), 256U);
        });
        EXPECT_EQ(countBits(tile), std::bitset<64>(tile).count());
    }
}

TEST(BitTile, FirstLanesAreWholeAndNoOthers) {
    for (std::int64_t lanes = 0; lanes < 20; ++lanes) {
        forEachPlace([&](unsigned int lane, unsigned int plane) {
            EXPECT_EQ(bitOf(firstLanes(lanes), lane, plane), lane < lanes) << lanes;
        });
    }
}

TEST(BitTile, ARisenPlaneComesFromTheOneBelowEvenOfTheTileBelow) {
    std::vector<BitTile> const tiles = sampleTiles();
    for (BitTile const tile : tiles) {
        for (BitTile const below : tiles) {
            BitTile expected = 0;
            forEachPlace([&](unsigned int lane, unsigned int plane) {
                bool const bit = plane == 0 ? bitOf(below, lane, 7) : bitOf(tile, lane, plane - 1);
                expected |= BitTile{bit} << (8 * lane + plane);
            });
            ASSERT_EQ(risen(tile, below), expected) << tile << " above " << below;
        }
    }
}

TEST(BitTile, AShiftedLaneComesFromTheOneBehindEvenOfTheTileBehind) {
    std::vector<BitTile> const tiles = sampleTiles();
    for (BitTile const tile : tiles) {
        for (BitTile const behind : tiles) {
            BitTile expected = 0;
            forEachPlace([&](unsigned int lane, unsigned int plane) {
                bool const bit = lane == 7 ? bitOf(behind, 0, plane) : bitOf(tile, lane + 1, plane);
                expected |= BitTile{bit} << (8 * lane + plane);
            });
            ASSERT_EQ(shiftedLanes(tile, behind), expected) << tile << " before " << behind;
        }
    }
}

TEST(BitTile, LoweredPlanesLeaveBackgroundOnTop) {
    for (BitTile const tile : sampleTiles()) {
        for (unsigned int planes = 0; planes < 8; ++planes) {
            forEachPlace([&](unsigned int lane, unsigned int plane) {
                EXPECT_EQ(bitOf(lowered(tile, planes), lane, plane),
                          plane + planes < 8 && bitOf(tile, lane, plane + planes));
            });
        }
    }
}

TEST(BitTile, TransposedLanesArePlanes) {
    for (BitTile const tile : sampleTiles()) {
        forEachPlace([&](unsigned int lane, unsigned int plane) {
            EXPECT_EQ(bitOf(transposedTile(tile), lane, plane), bitOf(tile, plane, lane));
        });
    }
}

// Moves of bits are told apart by words that have one each; words of many see to it that none depends on others.
std::vector<std::vector<BitTile>> sampleWords() {
    std::vector<std::vector<BitTile>> all;
    for (unsigned int i = 0; i < 512; ++i) {
        all.emplace_back(8)[i / 64] = BitTile{1} << i % 64;
    }
    std::mt19937_64 random(64);
    for (int i = 0; i < 16; ++i) {
        std::vector<BitTile>& words = all.emplace_back(8);
        std::generate(words.begin(), words.end(), random);
    }
    return all;
}

TEST(BitTile, TransposingPlanesExchangesThemWithWords) {
    for (std::vector<BitTile> const& words : sampleWords()) {
        BitTile turned[8];
        std::copy(words.begin(), words.end(), turned);
        transposePlanes(turned);
        for (unsigned int i = 0; i < 8; ++i) {
            forEachPlace([&](unsigned int lane, unsigned int plane) {
                EXPECT_EQ(bitOf(turned[plane], lane, i), bitOf(words[i], lane, plane));
            });
        }
    }
}

TEST(BitTile, TransposingLanesExchangesThemWithWords) {
    for (std::vector<BitTile> const& words : sampleWords()) {
        BitTile turned[8];
        std::copy(words.begin(), words.end(), turned);
        transposeLanes(turned);
        for (unsigned int i = 0; i < 8; ++i) {
            for (unsigned int lane = 0; lane < 8; ++lane) {
                EXPECT_EQ(laneOf(turned[lane], i), laneOf(words[i], lane));
            }
        }
    }
}

} // namespace
