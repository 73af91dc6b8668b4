// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NoiseGrid.h"

#include "src/scan/CellScan.h"

#include <gtest/gtest.h>

namespace {

using namespace tamo::scan;
using namespace tamo::test;

void expectCutCells(Triple const& size, VolumeLayout const& layout, Noise noise) {
    SCOPED_TRACE(testing::Message() << size[0] << " x " << size[1] << " x " << size[2]);
    NoiseGrid const volume(size, layout, noise);
    ReadPlan const plan = makeReadPlan(volume.grid());
    WorkSpace space(volume.grid(), plan);
    ASSERT_TRUE(space.isTaken());
    CellScan scan(volume.grid(), plan, space);
    CellRecorder recorder;
    scan.handTo(recorder);
    ASSERT_EQ(recorder.cells, volume.cutCells());
}

TEST(CellScan, HandsOutEveryCutCellInOrder) {
    for (VolumeLayout const& layout : plainLayouts()) {
        for (Noise const noise : kAllNoises) {
            for (Triple const& size : {Triple{8, 8, 8}, {17, 16, 15}, {33, 20, 9}, {7, 40, 24}}) {
                expectCutCells(size, layout, noise);
            }
        }
    }
}

TEST(CellScan, HandsOutEveryCutCellOfThinGrids) {
    for (VolumeLayout const& layout : plainLayouts()) {
        for (Noise const noise : kAllNoises) {
            for (int thin = 1; thin <= 3; ++thin) {
                for (Triple const& size : {Triple{thin, 9, 18}, {18, thin, 9}, {18, 9, thin}}) {
                    expectCutCells(size, layout, noise);
                }
                for (Triple const& size : {Triple{thin, thin, 30}, {30, thin, thin}, {thin, 30, thin}}) {
                    expectCutCells(size, layout, noise);
                }
            }
        }
    }
}

// Columns of more tiles than are turned together, with cut ones here and there.
TEST(CellScan, HandsOutTallColumnsInOrder) {
    for (int const height : {39, 40, 47, 48, 63, 64, 65, 130}) {
        for (Noise const noise : kAllNoises) {
            expectCutCells({10, 9, height}, {}, noise);
        }
    }
}

// Takes note of what it is handed besides cells.
struct BlockRecorder {
    void takeSlab(BitTile const* tiles, std::int64_t count) {
        ++slabs;
        for (std::int64_t i = 0; i < count; ++i) {
            foreground += countBits(tiles[i]);
        }
    }
    void takeBlock(CutTiles const& cut, CellRow row) {
        for (std::size_t i = 0; i < cut.count; ++i) {
            cells += countBits(cut.cells[i]);
        }
        // Rows of the border come after all of those inside.
        bool const isInside = row.isAlongX && row.at >= 0 && row.at < 19;
        EXPECT_FALSE(isInside && hasLeft);
        hasLeft = !isInside;
    }

    std::int64_t slabs = 0;
    std::uint64_t foreground = 0;
    std::uint64_t cells = 0;
    bool hasLeft = false;
};

TEST(CellScan, HandsOutEachSlabOnceAndEachCellInABlockOrACorner) {
    NoiseGrid const volume({19, 20, 21});
    ReadPlan const plan = makeReadPlan(volume.grid());
    WorkSpace space(volume.grid(), plan);
    ASSERT_TRUE(space.isTaken());
    CellScan scan(volume.grid(), plan, space);
    BlockRecorder blocks;
    scan.forEachBlock(blocks);
    CellRecorder corners;
    scan.handCornersTo(corners);
    EXPECT_EQ(blocks.slabs, 20);
    EXPECT_EQ(blocks.foreground, volume.foreground());
    Emissions const all = volume.cutCells();
    ASSERT_EQ(blocks.cells + corners.cells.size(), all.size());
    EXPECT_EQ(corners.cells, Emissions(all.end() - static_cast<std::ptrdiff_t>(corners.cells.size()), all.end()));
}

} // namespace
