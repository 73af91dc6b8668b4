// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tamo {

/// One row of tiles beside or between which a row of cells lies: its lane i gives the corner `Corner` of the cell
/// plane's four (dx + 2 dy), its lane i + 1 the corner `NextCorner`.
template <unsigned int Corner, unsigned int NextCorner> class CornerRow {
  public:
    /// `tiles` has to be readable one lane block beyond the last with cells; what stands there does not count.
    CornerRow(BitTile const* tiles, std::int64_t octets) : _tiles(tiles), _octets(octets) {}

    [[nodiscard]] BitTile any(std::int64_t block, std::int64_t octet) const {
        return own(block, octet) | next(block, octet);
    }

    [[nodiscard]] BitTile all(std::int64_t block, std::int64_t octet) const {
        return own(block, octet) & next(block, octet);
    }

    /// Puts the row's corners to their places among the eight of a cell: the octet's planes to the upper four, the
    /// planes below each to the lower four.
    void putCorners(std::int64_t block, std::int64_t octet, BitTile (&corners)[kTileSide]) const {
        corners[4 + Corner] = own(block, octet);
        corners[4 + NextCorner] = next(block, octet);
        corners[Corner] = risen(corners[4 + Corner], octet > 0 ? own(block, octet - 1) : 0);
        corners[NextCorner] = risen(corners[4 + NextCorner], octet > 0 ? next(block, octet - 1) : 0);
    }

  private:
    [[nodiscard]] BitTile own(std::int64_t block, std::int64_t octet) const { return _tiles[block * _octets + octet]; }
    [[nodiscard]] BitTile next(std::int64_t block, std::int64_t octet) const {
        return shiftedLanes(own(block, octet), own(block + 1, octet));
    }

    BitTile const* _tiles;
    std::int64_t _octets;
};

/// The tiles of one lane block in which some cell is cut, that is, has corners of both kinds; from the lowest z up.
struct CutTiles {
    /// Which column of the row is lane 0.
    std::int64_t firstLane;
    /// The number of tiles.
    std::size_t count;
    /// The first cell of each tile, a multiple of 8: cell k lies between sample planes k - 1 and k.
    std::uint64_t* firstCell;
    /// Which cells of each tile are cut; room for up to 7 tiles more than `count`.
    BitTile* cells;
    /// The cells' configurations, eight words a tile: word by cell, a byte a lane.
    BitTile* configurations;
};

/// Hands the cut tiles of a row of cells to `take(CutTiles&)`, lane block by lane block.
///
/// The row has `lanes` columns of cells, with the cells k = 0 to the number of samples; planes outside the grid are
/// background. `cut` provides the room for `octets` tiles.
template <typename Take, typename... Rows>
void forEachCutBlock(std::int64_t lanes, std::int64_t octets, CutTiles cut, Take const& take, Rows const&... rows) {
    // Two rows make whole planes; one alone leaves background corners in every plane, so that no cell is full.
    constexpr bool kCanBeFull = sizeof...(Rows) == 2;
    for (std::int64_t block = 0; block * kTileSide < lanes; ++block) {
        BitTile const laneMask = firstLanes(lanes - block * kTileSide);
        BitTile anyBelow = 0;
        BitTile allBelow = 0;
        cut.firstLane = block * kTileSide;
        cut.count = 0;
        for (std::int64_t octet = 0; octet < octets; ++octet) {
            BitTile const any = (rows.any(block, octet) | ...);
            BitTile const all = kCanBeFull ? (rows.all(block, octet) & ...) : 0;
            BitTile const cells = (any | risen(any, anyBelow)) & ~(all & risen(all, allBelow)) & laneMask;
            anyBelow = any;
            allBelow = all;
            // Always written, kept only where something is cut: a branch here would be mispredicted too often.
            cut.firstCell[cut.count] = static_cast<std::uint64_t>(octet * kTileSide);
            cut.cells[cut.count] = cells;
            cut.count += cells != 0 ? 1U : 0U;
        }
        if (cut.count == 0) {
            continue;
        }
        for (std::size_t i = 0; i < cut.count; ++i) {
            BitTile corners[kTileSide] = {};
            (rows.putCorners(block, static_cast<std::int64_t>(cut.firstCell[i]) / kTileSide, corners), ...);
            transposePlanes(corners);
            std::copy_n(corners, kTileSide, cut.configurations + kTileSide * i);
        }
        take(cut);
    }
}

/// Visits the cut cells of a lane block lane by lane, each from the bottom: `beginColumn(lane)` returns the function
/// that gets `(configuration, k)` for the cells of that lane. Uses up `cut.cells`.
template <typename BeginColumn> void visitColumns(CutTiles& cut, BeginColumn const& beginColumn) {
    // Fewer than this are not worth the turning below.
    constexpr std::size_t kWorthTurning = 6;
    if (cut.count < kWorthTurning) {
        for (unsigned int lane = 0; lane < kTileSide; ++lane) {
            auto const visit = beginColumn(cut.firstLane + lane);
            for (std::size_t tile = 0; tile < cut.count; ++tile) {
                for (unsigned int cells = laneOf(cut.cells[tile], lane); cells != 0; cells &= cells - 1) {
                    auto const plane = static_cast<unsigned int>(__builtin_ctz(cells));
                    unsigned int const configuration = laneOf(cut.configurations[kTileSide * tile + plane], lane);
                    visit(static_cast<unsigned char>(configuration),
                          static_cast<std::int64_t>(cut.firstCell[tile] + plane));
                }
            }
        }
        return;
    }
    // Eight tiles at a time, so that a lane's cells become the bits of one word.
    std::fill_n(cut.cells + cut.count, (kTileSide - cut.count % kTileSide) % kTileSide, BitTile{0});
    for (std::size_t tile = 0; tile < cut.count; tile += kTileSide) {
        BitTile words[kTileSide];
        std::copy_n(cut.cells + tile, kTileSide, words);
        transposeLanes(words);
        std::copy_n(words, kTileSide, cut.cells + tile);
    }
    for (unsigned int lane = 0; lane < kTileSide; ++lane) {
        auto const visit = beginColumn(cut.firstLane + lane);
        for (std::size_t tile = 0; tile < cut.count; tile += kTileSide) {
            for (BitTile cells = cut.cells[tile + lane]; cells != 0; cells &= cells - 1) {
                auto const place = static_cast<std::size_t>(__builtin_ctzll(cells));
                unsigned int const configuration = laneOf(cut.configurations[kTileSide * tile + place], lane);
                visit(static_cast<unsigned char>(configuration),
                      static_cast<std::int64_t>(cut.firstCell[tile + place / kTileSide] + place % kTileSide));
            }
        }
    }
}

} // namespace tamo
