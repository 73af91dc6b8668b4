// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "RingMemory.h"

#include "src/scan/CutTiles.h"
#include "src/scan/SlabWalk.h"

#include <algorithm>
#include <utility>

namespace {

using namespace tamo::scan;
using namespace tamo::test;

TEST(SlabWalk, GoesToEachSlabOnceWithTheOneBeforeAtHand) {
    for (VolumeLayout const& layout : plainLayouts()) {
        for (int const side : {8, 9, 17, 140}) {
            NoiseGrid const volume({9, side, 10}, layout);
            SampleGrid const grid = volume.grid();
            ReadPlan const plan = makeReadPlan(grid);
            RingMemory const memory(grid, plan);
            SlabWalk walk(grid, plan, memory.ring());
            for (std::int64_t y = 0; y < side; ++y) {
                ASSERT_TRUE(walk.next());
                ASSERT_EQ(walk.y(), y);
                ASSERT_TRUE(isSlab(grid, y, memory.ring(), walk.slab()));
                ASSERT_TRUE(y == 0 || isSlab(grid, y - 1, memory.ring(), walk.slabBefore()));
            }
            EXPECT_FALSE(walk.next());
        }
    }
}

// A cell of the whole volume by its lower corner, and its configuration.
using PlacedCell = std::pair<std::array<std::int64_t, 3>, unsigned int>;

// Which of two pieces that meet takes the cells between them.
enum class Taker {
    kLower,
    kUpper
};

// Cuts a range into parts of at least `shortest`, and returns where they start and where the last ends.
std::vector<int> cutAnywhere(int size, int shortest, std::mt19937& random) {
    std::vector<int> cuts = {0};
    while (size - cuts.back() >= 2 * shortest) {
        auto const room = static_cast<unsigned int>(size - cuts.back() - 2 * shortest + 1);
        cuts.push_back(cuts.back() + shortest + static_cast<int>(random() % room));
    }
    cuts.push_back(size);
    return cuts;
}

// Walks a volume in pieces and takes note of the cut cells.
class PieceWalker {
  public:
    PieceWalker(SampleGrid const& whole, Taker taker) : _whole(whole), _taker(taker) {}

    // Walks the box from `lower` to `upper` - 1.
    void walkPiece(std::array<std::int64_t, 3> const& lower, std::array<std::int64_t, 3> const& upper) {
        SampleGrid const box = {_whole.at(lower[0], lower[1], lower[2]),
                                _whole.stride,
                                {upper[0] - lower[0], upper[1] - lower[1], upper[2] - lower[2]}};
        bool const isLower = _taker == Taker::kLower;
        auto const below = [&](std::size_t axis) { return std::int64_t{!isLower && lower[axis] > 0}; };
        auto const above = [&](std::size_t axis, std::int64_t count) {
            return std::int64_t{isLower && upper[axis] < count};
        };
        GLtVec3<std::int64_t> const growth = {below(0), below(1), below(2)};
        walkGrid(box.grown(growth, {above(0, _whole.count.x), above(1, _whole.count.y), above(2, _whole.count.z)}),
                 {lower[0] - growth.x, lower[1] - growth.y, lower[2] - growth.z});
    }

    // Returns the cells found, sorted.
    [[nodiscard]] std::vector<PlacedCell> found() const {
        std::vector<PlacedCell> cells = _cells;
        std::sort(cells.begin(), cells.end());
        return cells;
    }

  private:
    void walkGrid(SampleGrid const& grid, std::array<std::int64_t, 3> const& lower) {
        ReadPlan const plan = makeReadPlan(grid);
        RingMemory const memory(grid, plan);
        std::int64_t const octets = memory.ring().octets;
        auto const room = static_cast<std::size_t>(octets + 7);
        std::vector<std::uint64_t> firstCell(room);
        std::vector<BitTile> cells(room);
        std::vector<BitTile> configurations(8 * room);
        CutTiles cut = {0, 0, firstCell.data(), cells.data(), configurations.data()};
        for (SlabWalk walk(grid, plan, memory.ring()); walk.next();) {
            for (std::int64_t block = 0; walk.y() > 0 && block * 8 < grid.count.x - 1; ++block) {
                findCutTiles<Border::kOpen>(block, grid.count.x - 1, grid.count.z, cut,
                                            CornerRow<0, 1>(walk.slabBefore(), octets),
                                            CornerRow<2, 3>(walk.slab(), octets));
                keep(cut, {lower[0] + cut.firstLane, lower[1] + walk.y() - 1, lower[2] - 1});
            }
        }
    }

    void keep(CutTiles const& cut, std::array<std::int64_t, 3> const& first) {
        for (std::size_t tile = 0; tile < cut.count; ++tile) {
            for (unsigned int bit = 0; bit < 64; ++bit) {
                if ((cut.cells[tile] >> bit & 1U) != 0) {
                    auto const z = static_cast<std::int64_t>(cut.firstCell[tile] + bit % 8);
                    _cells.push_back({{first[0] + bit / 8, first[1], first[2] + z},
                                      laneOf(cut.configurations[8 * tile + bit % 8], bit / 8)});
                }
            }
        }
    }

    SampleGrid _whole;
    Taker _taker;
    std::vector<PlacedCell> _cells;
};

// Returns the cut cells between samples, sorted.
std::vector<PlacedCell> innerCutCells(SampleGrid const& grid) {
    std::vector<PlacedCell> cells;
    for (std::int64_t x = 0; x + 1 < grid.count.x; ++x) {
        for (std::int64_t y = 0; y + 1 < grid.count.y; ++y) {
            for (std::int64_t z = 0; z + 1 < grid.count.z; ++z) {
                unsigned int const configuration = configurationOf(grid, x, y, z);
                if (configuration % 255 != 0) {
                    cells.push_back({{x, y, z}, configuration});
                }
            }
        }
    }
    return cells;
}

// Pieces are grown by one layer of samples where the volume goes on: all above, or all below, so that the cells between
// two are one's only.
TEST(SlabWalk, ContinuesBeyondTheBoxSoThatPiecesMakeUpTheWhole) {
    std::mt19937 random(6);
    std::vector<VolumeLayout> const layouts = plainLayouts(/*spacing=*/2);
    for (unsigned int i = 0; i < 72; ++i) {
        NoiseGrid const volume({20, 19, 21}, layouts[i % layouts.size()], kAllNoises[i / 6 % 3]);
        PieceWalker walker(volume.grid(), i % 2 == 0 ? Taker::kLower : Taker::kUpper);
        // Reading takes eight samples along one axis.
        std::vector<int> const atX = cutAnywhere(20, i % 3 == 0 ? 8 : 1, random);
        std::vector<int> const atY = cutAnywhere(19, i % 3 == 1 ? 8 : 1, random);
        std::vector<int> const atZ = cutAnywhere(21, i % 3 == 2 ? 8 : 1, random);
        for (std::size_t x = 0; x + 1 < atX.size(); ++x) {
            for (std::size_t y = 0; y + 1 < atY.size(); ++y) {
                for (std::size_t z = 0; z + 1 < atZ.size(); ++z) {
                    walker.walkPiece({atX[x], atY[y], atZ[z]}, {atX[x + 1], atY[y + 1], atZ[z + 1]});
                }
            }
        }
        ASSERT_EQ(walker.found(), innerCutCells(volume.grid())) << "cut " << i;
    }
}

} // namespace
