// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "CellOrder.h"
#include "CutColumns.h"
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
    /// `space` is taken, for this grid and plan, has not served another scan, and outlives this one.
    CellScan(SampleGrid const& grid, ReadPlan const& plan, WorkSpace& space)
        : _count(grid.count), _walk(grid, plan, space.ring()), _space(space) {}

    /// Returns whether this is the way to scan a grid: not along a stick of few samples along x and z, whose tiles hold
    /// little but padding. With noise in 3 x 3000 x 3 samples `PlainScan` takes 0.6 of the time.
    [[nodiscard]] static bool suits(SampleGrid const& grid) {
        constexpr std::int64_t kThick = 5;
        return grid.count.x >= kThick || grid.count.z >= kThick;
    }

    /// Hands every cut cell to the receiver once, in the order of CellOrder.h.
    template <typename Receiver> void handTo(Receiver& receiver) {
        CutColumns<Receiver> columns(_count.z, receiver);
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
    template <typename Taker, typename... Rows> void takeRow(Taker& taker, CellRow row, Rows const&... rows) {
        std::int64_t const lanes = (row.isAlongX ? _count.x : _count.y) - 1;
        CutTiles cut = _space.cutTiles();
        for (std::int64_t block = 0; block * kTileSide < lanes; ++block) {
            if (findCutTiles<Border::kBackground>(block, lanes, _count.z, cut, rows...)) {
                taker.takeBlock(cut, row);
            }
        }
    }

    void keepBorder();

    GLtVec3<std::int64_t> _count;
    SlabWalk _walk;
    WorkSpace& _space;
};

} // namespace tamo::scan
