// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "countCells.h"

#include "AxisOrder.h"
#include "CellScan.h"
#include "PlainScan.h"
#include "SmallScan.h"

#include <cstddef>

namespace tamo::scan {

namespace {

// Counts the cells that it receives.
struct CellCounter {
    void beginColumn(std::int64_t /*x*/, std::int64_t /*y*/) {}
    void takeCell(unsigned char configuration, std::int64_t /*z*/) { ++histogram[configuration]; }

    Histogram histogram{};
};

// Counts the cells of cut tiles, in the order in which they lie there, and on request the foreground.
class TileCounter {
  public:
    explicit TileCounter(CountedCells wanted) : _wanted(wanted) {}

    void takeSlab(BitTile const* tiles, std::int64_t count) {
        if (_wanted == CountedCells::kAll) {
            for (std::int64_t i = 0; i < count; ++i) {
                _foreground += countBits(tiles[i]);
            }
        }
    }

    void takeBlock(CutTiles const& cut, CellRow /*row*/) {
        for (std::size_t i = 0; i < cut.count; ++i) {
            BitTile const* const configurations = cut.configurations + kTileSide * i;
            for (BitTile cells = transposedTile(cut.cells[i]); cells != 0; cells &= cells - 1) {
                auto const place = static_cast<unsigned int>(__builtin_ctzll(cells));
                ++_histogram[laneOf(configurations[place / kTileSide], place % kTileSide)];
            }
        }
    }

    [[nodiscard]] std::uint64_t foreground() const { return _foreground; }

    [[nodiscard]] Histogram const& histogram() const { return _histogram; }

  private:
    Histogram _histogram{};
    std::uint64_t _foreground = 0;
    CountedCells _wanted;
};

template <typename Scan> Histogram countWithout(Scan const& scan, SampleGrid const& grid, CountedCells wanted) {
    CellCounter counter;
    scan.handTo(counter);
    if (wanted == CountedCells::kAll) {
        addUncutCells(grid.count, scan.countForeground(), counter.histogram);
    }
    return counter.histogram;
}

} // namespace

Histogram countCells(SampleGrid const& grid, CountedCells wanted) {
    if (SmallScan::fits(grid)) {
        return countWithout(SmallScan(grid), grid, wanted);
    }
    AxisOrder const order(grid);
    SampleGrid const ordered = order.grid();
    ReadPlan const plan = makeReadPlan(ordered);
    WorkSpace space(ordered, plan);
    if (!space.isTaken()) {
        return countWithout(PlainScan(grid), grid, wanted);
    }
    TileCounter tiles(wanted);
    CellScan scan(ordered, plan, space);
    scan.forEachBlock(tiles);
    CellCounter counter{tiles.histogram()};
    scan.handCornersTo(counter);
    if (wanted == CountedCells::kAll) {
        addUncutCells(ordered.count, tiles.foreground(), counter.histogram);
    }
    return order.inOriginalAxes(counter.histogram);
}

} // namespace tamo::scan
