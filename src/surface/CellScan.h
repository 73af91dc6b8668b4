// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "SlabReader.h"
#include "TileRow.h"

#include <array>
#include <memory>

namespace tamo {

/// Walks all cells of a sample grid, its border of background samples included, and finds those that are cut.
///
/// Slabs of the volume become bits, 64 samples a word; a word's cells are looked at together, and those whose corners
/// are all alike cost nothing more. Writes nothing but its own work space, which construction allocates: with n(a)
/// samples along axis a and s slabs a read, (s + 2) X Z / 8 + 2 Y Z / 8 + 10 Z + 560 bytes, where X and Y are n(x)
/// and n(y) rounded up to a multiple of 8, plus 8, and Z is n(z) rounded down, plus 8. For n = 1024 and s = 8 that
/// is 1.5 MiB. Where y is the densest axis, s is up to 128: 4.3 MiB for n = 512, 17 MiB for n = 1024. That does not
/// stay in a cache, but passes through it once; fewer slabs would fetch the volume itself several times. A count is
/// free to exchange axes, and never has y as the densest.
class CellScan {
  public:
    /// Throws `std::bad_alloc`.
    explicit CellScan(SampleGrid const& grid);
    CellScan(CellScan const&) = delete;
    CellScan& operator=(CellScan const&) = delete;

    /// Visits every cut cell once, in the order that receivers rely on: inner columns, upper y, upper x, lower y and
    /// lower x border, then the four corner columns level by level. `beginColumn(x, y)` returns the function that gets
    /// `(configuration, z)`; x, y and z number the sample at the cell's lower corner, from -1. Allocates nothing.
    template <typename BeginColumn> void visitInOrder(BeginColumn const& beginColumn) {
        forEachBlock([](BitTile const*) {},
                     [&](CutTiles& cut, std::int64_t y) {
                         visitColumns(cut, [&](std::int64_t lane) { return atCell(beginColumn(lane, y)); });
                     },
                     [&](CutTiles& cut, std::int64_t x) {
                         visitColumns(cut, [&](std::int64_t lane) { return atCell(beginColumn(x, lane)); });
                     });
        visitCorners(beginColumn);
    }

    /// Adds every cut cell to the counter of its configuration. Allocates nothing.
    void count(std::array<std::uint64_t, 256>& histogram);

    /// Does the same, and returns how many samples are foreground.
    [[nodiscard]] std::uint64_t countWithForeground(std::array<std::uint64_t, 256>& histogram);

  private:
    /// Turns the number of the plane above a cell into that of the plane below it.
    template <typename Visit> static auto atCell(Visit visit) {
        return [visit](unsigned char configuration, std::int64_t k) { visit(configuration, k - 1); };
    }

    template <typename TakeSlab> void countCells(std::array<std::uint64_t, 256>& histogram, TakeSlab const& takeSlab);

    /// Reads the grid slab by slab, hands each to `takeSlab(tiles)` and its cut tiles out block by block:
    /// `takeAlongX(cut, y)` for rows of cells along x, `takeAlongY(cut, x)` for the borders along y. The corner columns
    /// are left over.
    template <typename TakeSlab, typename TakeAlongX, typename TakeAlongY>
    void forEachBlock(TakeSlab const& takeSlab, TakeAlongX const& takeAlongX, TakeAlongY const& takeAlongY) {
        std::int64_t const lastX = _grid.count.x - 1;
        std::int64_t const lastY = _grid.count.y - 1;
        auto const alongX = [&](std::int64_t y, auto const&... rows) {
            forEachCutBlock(
                lastX, _ring.octets, _cut, [&](CutTiles& cut) { takeAlongX(cut, y); }, rows...);
        };
        auto const alongY = [&](std::int64_t x, auto const& row) {
            forEachCutBlock(
                lastY, _ring.octets, _cut, [&](CutTiles& cut) { takeAlongY(cut, x); }, row);
        };
        std::int64_t atHand = 0;
        for (std::int64_t y = 0; y <= lastY; ++y) {
            if (y == atHand) {
                _reader.read(y, _reader.slabsFrom(y), _ring);
                atHand += _reader.slabsFrom(y);
            }
            takeSlab(_ring.slab(y));
            keepBorder(y);
            if (y > 0) {
                alongX(y - 1, CornerRow<0, 1>(_ring.slab(y - 1), _ring.octets),
                       CornerRow<2, 3>(_ring.slab(y), _ring.octets));
            }
        }
        alongX(lastY, CornerRow<0, 1>(_ring.slab(lastY), _ring.octets));
        alongY(lastX, CornerRow<0, 2>(_upperSide, _ring.octets));
        alongX(-1, CornerRow<2, 3>(_firstSlab, _ring.octets));
        alongY(-1, CornerRow<1, 3>(_lowerSide, _ring.octets));
    }

    template <typename BeginColumn> void visitCorners(BeginColumn const& beginColumn) const {
        struct Column {
            BitTile const* tiles;
            unsigned int lane;
            unsigned int corner;
            std::int64_t x;
            std::int64_t y;
            unsigned int below;
        };
        std::int64_t const lastX = _grid.count.x - 1;
        std::int64_t const lastY = _grid.count.y - 1;
        std::int64_t const endBlock = lastY / kTileSide * _ring.octets;
        auto const endLane = static_cast<unsigned int>(lastY % kTileSide);
        Column columns[] = {{_lowerSide, 0, 3, -1, -1, 0},
                            {_lowerSide + endBlock, endLane, 1, -1, lastY, 0},
                            {_upperSide, 0, 2, lastX, -1, 0},
                            {_upperSide + endBlock, endLane, 0, lastX, lastY, 0}};
        for (std::int64_t k = 0; k <= _grid.count.z; ++k) {
            for (Column& column : columns) {
                unsigned int const sample =
                    laneOf(column.tiles[k / kTileSide], column.lane) >> static_cast<unsigned int>(k % kTileSide) & 1U;
                unsigned int const configuration = column.below << column.corner | sample << (column.corner + 4U);
                if (configuration != 0) {
                    beginColumn(column.x, column.y)(static_cast<unsigned char>(configuration), k - 1);
                }
                column.below = sample;
            }
        }
    }

    void keepBorder(std::int64_t y);

    SampleGrid _grid;
    SlabReader _reader;
    SlabRing _ring;
    /// Slab 0, and the columns at the lower and the upper end of x with lanes along y: what the borders are made of.
    BitTile* _firstSlab;
    BitTile* _lowerSide;
    BitTile* _upperSide;
    CutTiles _cut;
    /// The work space: on the stack where a small volume needs less than that costs to allocate.
    std::array<BitTile, 512> _small;
    std::unique_ptr<BitTile[]> _large;
};

} // namespace tamo
