// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "src/scan/CutColumns.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

namespace {

using namespace tamo::scan;

// A cell as a receiver gets it.
using Cell = std::array<std::int64_t, 4>;

struct Recorder {
    void beginColumn(std::int64_t newX, std::int64_t newY) {
        x = newX;
        y = newY;
    }
    void takeCell(unsigned char configuration, std::int64_t z) { cells.push_back({x, y, z, configuration}); }

    std::int64_t x = 0;
    std::int64_t y = 0;
    std::vector<Cell> cells;
};

// Cut tiles of lanes 16 to 23, with any cells cut and any configurations that cut cells have.
class RandomTiles {
  public:
    RandomTiles(std::mt19937_64& engine, std::size_t count, unsigned int planesOfCells)
        : _firstCells(count + 7), _cells(count + 7), _configurations(8 * count) {
        for (std::size_t tile = 0; tile < count; ++tile) {
            // Every other tile has no cut cell and is left out.
            _firstCells[tile] = 16 * tile;
            BitTile const planes = 0x0101010101010101U * ((1U << planesOfCells) - 1);
            _cells[tile] = (engine() & engine() & planes) | 1U;
            for (unsigned int plane = 0; plane < 8; ++plane) {
                for (unsigned int lane = 0; lane < 8; ++lane) {
                    bool const isCut = (laneOf(_cells[tile], lane) >> plane & 1U) != 0;
                    BitTile const configuration = isCut ? 1 + engine() % 254 : engine() % 2 * 255;
                    _configurations[8 * tile + plane] |= configuration << 8 * lane;
                }
            }
        }
        cut = {16, count, _firstCells.data(), _cells.data(), _configurations.data()};
    }

    // Returns the cells in the order of receivers, looked up one by one.
    [[nodiscard]] std::vector<Cell> inOrder(CellRow row) const {
        std::vector<Cell> cells;
        for (unsigned int lane = 0; lane < 8; ++lane) {
            CellColumn const column = row.column(16 + lane);
            for (std::size_t i = 0; i < 8 * cut.count; ++i) {
                auto const plane = static_cast<unsigned int>(i % 8);
                if ((laneOf(_cells[i / 8], lane) >> plane & 1U) != 0) {
                    std::int64_t const z = static_cast<std::int64_t>(_firstCells[i / 8]) + plane - 1;
                    cells.push_back({column.x, column.y, z, laneOf(_configurations[i], lane)});
                }
            }
        }
        return cells;
    }

    CutTiles cut{};

  private:
    std::vector<std::uint64_t> _firstCells;
    std::vector<BitTile> _cells;
    std::vector<BitTile> _configurations;
};

TEST(CutColumns, ComeLaneByLaneFromTheBottomUp) {
    std::mt19937_64 engine(1);
    for (std::size_t count = 1; count < 30; ++count) {
        for (CellRow const row : {CellRow{true, 5}, {false, -1}}) {
            RandomTiles const tiles(engine, count, 8);
            std::vector<Cell> const expected = tiles.inOrder(row);
            Recorder recorder;
            CutColumns<Recorder>(1000, recorder).takeBlock(tiles.cut, row);
            EXPECT_EQ(recorder.cells, expected) << count;
        }
    }
}

TEST(CutColumns, OfThinGridsComeInTheSameOrder) {
    std::mt19937_64 engine(2);
    for (int round = 0; round < 50; ++round) {
        for (unsigned int planes = 1; planes <= kThinPlanes; ++planes) {
            for (CellRow const row : {CellRow{true, 5}, {false, -1}}) {
                RandomTiles const tiles(engine, 1, planes + 1);
                Recorder recorder;
                CutColumns<Recorder>(planes, recorder).takeBlock(tiles.cut, row);
                EXPECT_EQ(recorder.cells, tiles.inOrder(row)) << planes;
            }
        }
    }
}

} // namespace
