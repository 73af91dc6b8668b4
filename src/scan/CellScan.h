// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../objects/Configurations.h"
#include "CellOrder.h"
#include "CutTiles.h"
#include "SlabWalk.h"
#include "WorkSpace.h"

namespace tamo::scan {

/// Looks at all cells of a sample grid, its border of background samples included, and finds those that are cut.
///
/// Slabs of the volume become bits, 64 samples a word; a word's cells are looked at together, and those whose corners
/// are all alike cost nothing more. Serves one call. Allocates nothing.
class CellScan {
  public:
    /// `space` is taken, for this grid and plan, has not been used, and outlives the scan.
    CellScan(SampleGrid const& grid, ReadPlan const& plan, WorkSpace const& space)
        : _count(grid.count), _walk(grid, plan, space.ring()), _space(space) {}

    /// Hands every cut cell to the receiver once, in the order of CellOrder.h.
    template <typename Receiver> void handTo(Receiver& receiver) {
        ColumnsOf<Receiver> columns{_count.z, receiver};
        forEachBlock(columns);
        handCornersTo(receiver);
    }

    /// Hands out cut tiles, lane block by lane block, in the order of their rows: `taker` gets `takeSlab(tiles, count)`
    /// for each slab of samples and `takeBlock(cut, row)`. The corner columns are left to `handCornersTo`.
    template <typename Taker> void forEachBlock(Taker& taker) {
        std::int64_t const octets = _space.ring().octets;
        CellRow const lastRow = {true, _count.y - 1};
        while (_walk.next()) {
            taker.takeSlab(_walk.slab(), _space.ring().slabSize);
            keepBorder();
            if (_walk.y() > 0) {
                takeRow(taker, {true, _walk.y() - 1}, CornerRow<0, 1>(_walk.slabBefore(), octets),
                        CornerRow<2, 3>(_walk.slab(), octets));
            }
        }
        takeRow(taker, lastRow, CornerRow<0, 1>(_space.ring().slab(lastRow.at), octets));
        takeRow(taker, {false, _count.x - 1}, CornerRow<0, 2>(_space.upperSide(), octets));
        takeRow(taker, {true, -1}, CornerRow<2, 3>(_space.firstSlab(), octets));
        takeRow(taker, {false, -1}, CornerRow<1, 3>(_space.lowerSide(), octets));
    }

    /// Hands the cut cells of the corner columns to the receiver, level by level; after `forEachBlock`.
    template <typename Receiver> void handCornersTo(Receiver& receiver) const {
        struct Corner {
            BitTile const* tiles;
            unsigned int lane;
            unsigned int place;
            unsigned int below;
        };
        std::int64_t const lastY = _count.y - 1;
        std::int64_t const endBlock = lastY / kTileSide * _space.ring().octets;
        auto const endLane = static_cast<unsigned int>(lastY % kTileSide);
        std::array<Corner, 4> corners = {{{_space.lowerSide(), 0, 3, 0},
                                          {_space.lowerSide() + endBlock, endLane, 1, 0},
                                          {_space.upperSide(), 0, 2, 0},
                                          {_space.upperSide() + endBlock, endLane, 0, 0}}};
        std::array<CellColumn, 4> const columns = cornerColumns(_count);
        for (std::int64_t k = 0; k <= _count.z; ++k) {
            for (std::size_t i = 0; i < corners.size(); ++i) {
                Corner& corner = corners[i];
                unsigned int const sample =
                    laneOf(corner.tiles[k / kTileSide], corner.lane) >> static_cast<unsigned int>(k % kTileSide) & 1U;
                unsigned int const configuration = corner.below << corner.place | sample << (corner.place + 4U);
                if (configuration != 0) {
                    receiver.beginColumn(columns[i].x, columns[i].y);
                    receiver.takeCell(static_cast<unsigned char>(configuration), k - 1);
                }
                corner.below = sample;
            }
        }
    }

  private:
    /// Hands a receiver the cells of each block column by column.
    template <typename Receiver> struct ColumnsOf {
        void takeSlab(BitTile const* /*tiles*/, std::int64_t /*count*/) {}
        void takeBlock(CutTiles const& cut, CellRow row) {
            if (planes == 1) {
                handThinColumns<1>(cut, row, receiver);
            } else if (planes == kThinPlanes) {
                handThinColumns<kThinPlanes>(cut, row, receiver);
            } else {
                handColumns(cut, row, receiver);
            }
        }

        std::int64_t planes;
        Receiver& receiver;
    };

    template <typename Taker, typename... Rows> void takeRow(Taker& taker, CellRow row, Rows const&... rows) {
        std::int64_t const lanes = (row.isAlongX ? _count.x : _count.y) - 1;
        CutTiles cut = _space.cutTiles();
        for (std::int64_t block = 0; block * kTileSide < lanes; ++block) {
            if (findCutTiles<Border::kBackground>(block, lanes, _count.z, cut, rows...)) {
                taker.takeBlock(cut, row);
            }
        }
    }

    template <typename Receiver> static void handColumns(CutTiles cut, CellRow row, Receiver& receiver);
    template <unsigned int planes, typename Receiver>
    static void handThinColumns(CutTiles const& cut, CellRow row, Receiver& receiver);

    void keepBorder();

    GLtVec3<std::int64_t> _count;
    SlabWalk _walk;
    WorkSpace const& _space;
};

/// Does what `handColumns` does for the one tile of a thin grid.
template <unsigned int planes, typename Receiver>
void CellScan::handThinColumns(CutTiles const& cut, CellRow row, Receiver& receiver) {
    std::array<BitTile, planes + 1> configurations{};
    std::copy_n(cut.configurations, planes + 1, configurations.begin());
    std::int64_t i = cut.firstLane;
    for (BitTile lanes = cut.cells[0]; lanes != 0; lanes >>= 8U, ++i) {
        if ((lanes & 0xFFU) != 0) {
            CellColumn const column = row.column(i);
            receiver.beginColumn(column.x, column.y);
        }
        for (unsigned int k = 0; k <= planes; ++k) {
            auto const configuration = static_cast<unsigned char>(configurations[k]);
            if (configuration != 0 && configuration != kFullCell) {
                receiver.takeCell(configuration, std::int64_t{k} - 1);
            }
            configurations[k] >>= 8U;
        }
    }
}

/// Hands the cells of a block to the receiver, column by column from the bottom up. Uses up the block's cells.
template <typename Receiver> void CellScan::handColumns(CutTiles cut, CellRow row, Receiver& receiver) {
    auto const beginColumn = [&](unsigned int lane) {
        CellColumn const column = row.column(cut.firstLane + lane);
        receiver.beginColumn(column.x, column.y);
    };
    // Cell k lies between sample planes k - 1 and k, and is named by the lower.
    auto const takeCell = [&](std::size_t tile, unsigned int plane, unsigned int lane) {
        unsigned int const configuration = laneOf(cut.configurations[kTileSide * tile + plane], lane);
        receiver.takeCell(static_cast<unsigned char>(configuration),
                          static_cast<std::int64_t>(cut.firstCell[tile] + plane) - 1);
    };
    // Fewer than this are not worth the turning below.
    constexpr std::size_t kWorthTurning = 6;
    if (cut.count < kWorthTurning) {
        for (unsigned int lane = 0; lane < kTileSide; ++lane) {
            beginColumn(lane);
            for (std::size_t tile = 0; tile < cut.count; ++tile) {
                for (unsigned int cells = laneOf(cut.cells[tile], lane); cells != 0; cells &= cells - 1) {
                    takeCell(tile, static_cast<unsigned int>(__builtin_ctz(cells)), lane);
                }
            }
        }
        return;
    }
    turnByEights(cut);
    for (unsigned int lane = 0; lane < kTileSide; ++lane) {
        beginColumn(lane);
        for (std::size_t tile = 0; tile < cut.count; tile += kTileSide) {
            for (BitTile cells = cut.cells[tile + lane]; cells != 0; cells &= cells - 1) {
                auto const place = static_cast<unsigned int>(__builtin_ctzll(cells));
                takeCell(tile + place / kTileSide, place % kTileSide, lane);
            }
        }
    }
}

} // namespace tamo::scan
