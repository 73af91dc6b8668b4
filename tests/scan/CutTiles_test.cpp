// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "src/scan/CutTiles.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>
#include <vector>

namespace {

using namespace tamo::scan;

// A row of samples in tiles, with anything in the lanes behind the last sample.
class NoiseRow {
  public:
    // One of `rarity` samples differs from the others.
    NoiseRow(std::int64_t columns, std::int64_t planes, unsigned int rarity, bool isMostlyForeground,
             std::mt19937& random)
        : octets(planes / 8 + 1), _tiles(static_cast<std::size_t>((columns / 8 + 2) * octets)), _planes(planes) {
        for (std::size_t i = 0; i < _tiles.size(); ++i) {
            for (unsigned int bit = 0; bit < 64; ++bit) {
                bool const value = (random() % rarity == 0) != isMostlyForeground;
                auto const plane = static_cast<std::int64_t>(i) % octets * 8 + bit % 8;
                _tiles[i] |= BitTile{value && plane < planes} << bit;
            }
        }
    }

    [[nodiscard]] unsigned int sample(std::int64_t lane, std::int64_t plane) const {
        if (plane < 0 || plane >= _planes) {
            return 0;
        }
        BitTile const tile = _tiles[static_cast<std::size_t>(lane / 8 * octets + plane / 8)];
        return static_cast<unsigned int>(tile >> static_cast<unsigned int>(lane % 8 * 8 + plane % 8)) & 1U;
    }
    [[nodiscard]] BitTile const* tiles() const { return _tiles.data(); }

    std::int64_t octets;

  private:
    std::vector<BitTile> _tiles;
    std::int64_t _planes;
};

// Lane, number and configuration of a cell.
using RowCell = std::tuple<std::int64_t, std::int64_t, unsigned int>;

// One row of samples at its corners of the cells.
struct PlacedRow {
    NoiseRow const& row;
    unsigned int corner;
    unsigned int nextCorner;
};

std::vector<RowCell> cellsByLookingUp(std::vector<PlacedRow> const& rows, std::int64_t lanes, std::int64_t planes,
                                      Border border) {
    std::vector<RowCell> cells;
    bool const isOpen = border == Border::kOpen;
    for (std::int64_t lane = 0; lane < lanes; ++lane) {
        for (std::int64_t k = isOpen ? 1 : 0; k < planes + (isOpen ? 0 : 1); ++k) {
            unsigned int configuration = 0;
            for (PlacedRow const& r : rows) {
                configuration |= r.row.sample(lane, k - 1) << r.corner | r.row.sample(lane, k) << (r.corner + 4) |
                                 r.row.sample(lane + 1, k - 1) << r.nextCorner |
                                 r.row.sample(lane + 1, k) << (r.nextCorner + 4);
            }
            if (configuration != 0 && configuration != 255) {
                cells.emplace_back(lane, k, configuration);
            }
        }
    }
    return cells;
}

// Room for the cut tiles of a block, full of what must not matter.
class CutRoom {
  public:
    explicit CutRoom(std::int64_t octets)
        : _firstCell(static_cast<std::size_t>(octets + 7), ~std::uint64_t{0}), _cells(_firstCell.size(), ~BitTile{0}),
          _configurations(8 * _firstCell.size(), ~BitTile{0}) {}

    CutTiles tiles() { return {-1, 99, _firstCell.data(), _cells.data(), _configurations.data()}; }

  private:
    std::vector<std::uint64_t> _firstCell;
    std::vector<BitTile> _cells;
    std::vector<BitTile> _configurations;
};

// Appends the cells of a block, lane by lane.
void appendCells(CutTiles const& cut, std::vector<RowCell>& cells) {
    for (unsigned int lane = 0; lane < 8; ++lane) {
        for (std::size_t tile = 0; tile < cut.count; ++tile) {
            EXPECT_NE(cut.cells[tile], 0U) << "a tile without a cut cell";
            for (unsigned int plane = 0; plane < 8; ++plane) {
                if ((laneOf(cut.cells[tile], lane) >> plane & 1U) != 0) {
                    cells.emplace_back(cut.firstLane + lane, static_cast<std::int64_t>(cut.firstCell[tile] + plane),
                                       laneOf(cut.configurations[8 * tile + plane], lane));
                }
            }
        }
    }
}

template <Border border, typename... Rows>
std::vector<RowCell> cellsFound(std::int64_t lanes, std::int64_t planes, Rows const&... rows) {
    std::vector<RowCell> cells;
    for (std::int64_t block = 0; block * 8 < lanes; ++block) {
        CutRoom room(planes / 8 + 1);
        CutTiles cut = room.tiles();
        bool const areAny = findCutTiles<border>(block, lanes, planes, cut, rows...);
        EXPECT_EQ(areAny, cut.count > 0);
        appendCells(cut, cells);
    }
    return cells;
}

template <Border border>
void expectAllRows(std::int64_t lanes, std::int64_t planes, NoiseRow const& a, NoiseRow const& b) {
    std::int64_t const octets = a.octets;
    EXPECT_EQ(
        (cellsFound<border>(lanes, planes, CornerRow<0, 1>(a.tiles(), octets), CornerRow<2, 3>(b.tiles(), octets))),
        cellsByLookingUp({{a, 0, 1}, {b, 2, 3}}, lanes, planes, border));
    EXPECT_EQ((cellsFound<border>(lanes, planes, CornerRow<0, 1>(a.tiles(), octets))),
              cellsByLookingUp({{a, 0, 1}}, lanes, planes, border));
    EXPECT_EQ((cellsFound<border>(lanes, planes, CornerRow<0, 2>(a.tiles(), octets))),
              cellsByLookingUp({{a, 0, 2}}, lanes, planes, border));
    EXPECT_EQ((cellsFound<border>(lanes, planes, CornerRow<2, 3>(a.tiles(), octets))),
              cellsByLookingUp({{a, 2, 3}}, lanes, planes, border));
    EXPECT_EQ((cellsFound<border>(lanes, planes, CornerRow<1, 3>(a.tiles(), octets))),
              cellsByLookingUp({{a, 1, 3}}, lanes, planes, border));
}

TEST(CutTiles, AreThoseOfEveryCutCellWithItsConfiguration) {
    std::mt19937 random(3);
    for (std::int64_t planes = 1; planes <= 20; ++planes) {
        for (std::int64_t const lanes : {1, 2, 7, 8, 9, 15, 16, 17}) {
            for (unsigned int const rarity : {2U, 100U}) {
                for (bool const isMostlyForeground : {false, true}) {
                    SCOPED_TRACE(testing::Message() << lanes << " lanes, " << planes << " planes, 1/" << rarity);
                    NoiseRow const a(lanes + 1, planes, rarity, isMostlyForeground, random);
                    NoiseRow const b(lanes + 1, planes, rarity, isMostlyForeground, random);
                    expectAllRows<Border::kBackground>(lanes, planes, a, b);
                    expectAllRows<Border::kOpen>(lanes, planes, a, b);
                }
            }
        }
    }
}

TEST(CutTiles, FullRowsAreCutAtABackgroundBorderAndNotAtAnOpenOne) {
    std::mt19937 random(0);
    for (std::int64_t planes = 1; planes <= 20; ++planes) {
        SCOPED_TRACE(planes);
        NoiseRow const full(9, planes, 1, /*isMostlyForeground=*/false, random);
        CornerRow<0, 1> const lower(full.tiles(), full.octets);
        CornerRow<2, 3> const upper(full.tiles(), full.octets);
        std::vector<RowCell> ends;
        for (std::int64_t lane = 0; lane < 8; ++lane) {
            ends.emplace_back(lane, 0, 0xF0U);
            ends.emplace_back(lane, planes, 0x0FU);
        }
        EXPECT_EQ(cellsFound<Border::kBackground>(8, planes, lower, upper), ends);
        EXPECT_EQ(cellsFound<Border::kOpen>(8, planes, lower, upper), std::vector<RowCell>());
    }
}

TEST(CutTiles, TurnedByEightsALaneIsAWord) {
    std::mt19937_64 random(7);
    for (std::size_t count = 1; count <= 17; ++count) {
        CutRoom room(17);
        CutTiles cut = room.tiles();
        cut.count = count;
        std::vector<BitTile> before(count + 7);
        for (std::size_t i = 0; i < count; ++i) {
            before[i] = cut.cells[i] = random();
        }
        turnByEights(cut);
        for (std::size_t tile = 0; tile < count; tile += 8) {
            for (unsigned int lane = 0; lane < 8; ++lane) {
                for (unsigned int i = 0; i < 8; ++i) {
                    EXPECT_EQ(laneOf(cut.cells[tile + lane], i), laneOf(before[tile + i], lane));
                }
            }
        }
    }
}

} // namespace
