// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"
#include "CornerRow.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tamo::scan {

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
    /// The cells' configurations, eight words per tile: word by cell, a byte per lane.
    BitTile* configurations;
};

/// Grids of up to this many planes are done plane by plane: an image of noise takes three fifths of the instructions
/// that it takes by eight planes at a time.
constexpr std::int64_t kThinPlanes = 2;

/// What lies below the lowest and above the highest sample plane of a row of cells.
enum class Border {
    /// Background: the surface closes there.
    kBackground,
    /// Something that the row does not know: it has no cells there.
    kOpen
};

/// Returns the cells that a border leaves to a tile, given the number of sample planes.
template <Border border> constexpr BitTile cellsWithin(std::int64_t octet, std::int64_t planes) {
    constexpr BitTile kPlane = 0x0101010101010101U;
    BitTile cells = ~BitTile{0};
    if (border == Border::kOpen) {
        cells &= octet == 0 ? ~kPlane : cells;
        cells &= octet == planes / kTileSide ? ~(kPlane << static_cast<unsigned int>(planes % kTileSide)) : cells;
    }
    return cells;
}

/// Finds the cut tiles of lane block `block` of a row of cells; returns whether there are any.
///
/// The row has `lanes` columns of cells, with the cells k = 0 to `planes`, the number of samples along z. Two rows of
/// tiles make whole planes of cells; one alone leaves background corners in every plane. `cut` provides the room for
/// all tiles of a block.
///
/// Inlined by force: called, it takes an eighth more instructions for the ball of 128 voxels a side.
template <Border border, typename... Rows>
[[gnu::always_inline]] inline bool findCutTiles(std::int64_t block, std::int64_t lanes, std::int64_t planes,
                                                CutTiles& cut, Rows const&... rows) {
    constexpr bool kCanBeFull = sizeof...(Rows) == 2;
    BitTile const laneMask = firstLanes(lanes - block * kTileSide);
    BitTile anyBelow = 0;
    BitTile allBelow = 0;
    // Copies, as the compiler cannot tell that what is written to the cells does not change them.
    std::uint64_t* const firstCell = cut.firstCell;
    BitTile* const cutCells = cut.cells;
    BitTile* const configurations = cut.configurations;
    std::size_t count = 0;
    for (std::int64_t octet = 0; octet <= planes / kTileSide; ++octet) {
        BitTile const any = (rows.any(block, octet) | ...);
        BitTile const all = kCanBeFull ? (rows.all(block, octet) & ...) : 0;
        BitTile const cells = (any | risen(any, anyBelow)) & ~(all & risen(all, allBelow)) & laneMask &
                              cellsWithin<border>(octet, planes);
        anyBelow = any;
        allBelow = all;
        // Always written, kept only where something is cut: a branch here would be mispredicted too often.
        firstCell[count] = static_cast<std::uint64_t>(octet * kTileSide);
        cutCells[count] = cells;
        count += cells != 0 ? 1U : 0U;
    }
    cut.firstLane = block * kTileSide;
    cut.count = count;
    if (planes <= kThinPlanes) {
        // Turning the whole tile would take longer than putting its few planes together one by one.
        BitTile below = 0;
        for (unsigned int k = 0; k <= static_cast<unsigned int>(planes) && count != 0; ++k) {
            BitTile const above = (rows.cornersInPlane(block, k) | ...);
            configurations[k] = below | above << 4U;
            below = above;
        }
        return count != 0;
    }
    for (std::size_t i = 0; i < count; ++i) {
        BitTile corners[kTileSide] = {};
        (rows.putCorners(block, static_cast<std::int64_t>(firstCell[i]) / kTileSide, corners), ...);
        transposePlanes(corners);
        std::copy_n(corners, kTileSide, configurations + kTileSide * i);
    }
    return count != 0;
}

/// Turns the cells of every eight tiles, so that those of one lane become the bits of one word: word tile + lane of
/// `cells` then holds, byte by byte, the lane's cells of tiles tile to tile + 7.
inline void turnByEights(CutTiles const& cut) {
    std::fill_n(cut.cells + cut.count, (kTileSide - cut.count % kTileSide) % kTileSide, BitTile{0});
    for (std::size_t tile = 0; tile < cut.count; tile += kTileSide) {
        BitTile words[kTileSide];
        std::copy_n(cut.cells + tile, kTileSide, words);
        transposeLanes(words);
        std::copy_n(words, kTileSide, cut.cells + tile);
    }
}

} // namespace tamo::scan
