// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

namespace tamo::scan {

/// 64 samples or cells as bits: 8 lanes along one axis of the volume, one per byte, by 8 planes along z, one per bit.
///
/// Lane i is byte i counted from the least significant, plane j its bit j, on every machine.
using BitTile = std::uint64_t;

constexpr std::int64_t kTileSide = 8;

/// Returns the number of tiles that cover `samples` samples.
constexpr std::int64_t tilesFor(std::int64_t samples) { return (samples + kTileSide - 1) / kTileSide; }

/// Returns the bits of lane `lane`, plane 0 first.
constexpr unsigned int laneOf(BitTile tile, unsigned int lane) {
    return static_cast<unsigned int>(tile >> (kTileSide * lane)) & 0xFFU;
}

/// Returns a tile of all planes of the first `lanes` lanes.
constexpr BitTile firstLanes(std::int64_t lanes) {
    return lanes >= kTileSide ? ~BitTile{0} : (BitTile{1} << (kTileSide * lanes)) - 1;
}

/// Moves every plane of a tile up by one; the lowest comes from the top of the tile below.
constexpr BitTile risen(BitTile tile, BitTile below) {
    return (tile << 1U & 0xFEFEFEFEFEFEFEFEU) | (below >> 7U & 0x0101010101010101U);
}

/// Moves every plane of a tile down by `planes`, 0 to 7; the lowest fall away.
constexpr BitTile lowered(BitTile tile, unsigned int planes) {
    return tile >> planes & 0x0101010101010101U * (0xFFU >> planes);
}

/// Moves every lane of a tile down by one; the last comes from the front of the tile behind.
constexpr BitTile shiftedLanes(BitTile tile, BitTile behind) { return tile >> 8U | behind << 56U; }

/// Packs eight bytes of 0 or 1 into one, the least significant first.
constexpr std::uint64_t packEight(std::uint64_t bytes) {
    // The factor moves each byte to a bit of its own in the product's top byte, and no sum carries into it.
    return (bytes * 0x0102040810204080U) >> 56U;
}

/// Returns how many of a tile's bits are set.
constexpr std::uint64_t countBits(BitTile tile) {
    tile -= tile >> 1U & 0x5555555555555555U;
    tile = (tile & 0x3333333333333333U) + (tile >> 2U & 0x3333333333333333U);
    tile = (tile + (tile >> 4U)) & 0x0F0F0F0F0F0F0F0FU;
    return (tile * 0x0101010101010101U) >> 56U;
}

/// Exchanges a tile's lanes and planes.
constexpr BitTile transposedTile(BitTile tile) {
    constexpr BitTile kPairs = 0x00AA00AA00AA00AAU;
    constexpr BitTile kQuads = 0x0000CCCC0000CCCCU;
    constexpr BitTile kHalves = 0x00000000F0F0F0F0U;
    BitTile difference = (tile ^ tile >> 7U) & kPairs;
    tile ^= difference ^ difference << 7U;
    difference = (tile ^ tile >> 14U) & kQuads;
    tile ^= difference ^ difference << 14U;
    difference = (tile ^ tile >> 28U) & kHalves;
    return tile ^ difference ^ difference << 28U;
}

/// Exchanges blocks of `Distance` x `Distance` entries across the diagonal of eight words, entries being `Width` bits.
template <unsigned int Distance, unsigned int Width>
inline void exchangeBlocks(BitTile (&words)[kTileSide], BitTile low) {
    constexpr unsigned int kShift = Distance * Width;
    for (unsigned int i = 0; i < kTileSide; ++i) {
        if ((i & Distance) == 0) {
            BitTile const difference = ((words[i] >> kShift) ^ words[i + Distance]) & low;
            words[i] ^= difference << kShift;
            words[i + Distance] ^= difference;
        }
    }
}

/// Exchanges words and planes, lane by lane: plane j of word i becomes plane i of word j.
inline void transposePlanes(BitTile (&words)[kTileSide]) {
    exchangeBlocks<4, 1>(words, 0x0F0F0F0F0F0F0F0FU);
    exchangeBlocks<2, 1>(words, 0x3333333333333333U);
    exchangeBlocks<1, 1>(words, 0x5555555555555555U);
}

/// Exchanges words and lanes: lane j of word i becomes lane i of word j.
inline void transposeLanes(BitTile (&words)[kTileSide]) {
    exchangeBlocks<4, 8>(words, 0x00000000FFFFFFFFU);
    exchangeBlocks<2, 8>(words, 0x0000FFFF0000FFFFU);
    exchangeBlocks<1, 8>(words, 0x00FF00FF00FF00FFU);
}

} // namespace tamo::scan
