// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NoiseGrid.h"

#include "src/scan/SmallScan.h"

#include <gtest/gtest.h>

namespace {

using namespace tamo::scan;
using namespace tamo::test;

bool fits(std::int64_t x, std::int64_t y, std::int64_t z) {
    unsigned char voxel = 0;
    return SmallScan::fits({&voxel, {0, 0, 0}, {x, y, z}});
}

void expectCutCells(Triple const& size, VolumeLayout const& layout = {}, Noise noise = Noise::kHalf) {
    SCOPED_TRACE(testing::Message() << size[0] << " x " << size[1] << " x " << size[2]);
    NoiseGrid const volume(size, layout, noise);
    ASSERT_TRUE(SmallScan::fits(volume.grid()));
    SmallScan const scan(volume.grid());
    CellRecorder recorder;
    scan.handTo(recorder);
    ASSERT_EQ(recorder.cells, volume.cutCells());
    ASSERT_EQ(scan.countForeground(), volume.foreground());
}

TEST(SmallScan, TakesWhatItsColumnsHaveRoomFor) {
    EXPECT_TRUE(fits(15, 15, 15));
    EXPECT_TRUE(fits(18, 13, 15));
    EXPECT_FALSE(fits(18, 14, 15));
    EXPECT_FALSE(fits(1, 1, 16));
    EXPECT_TRUE(fits(98, 1, 1));
    EXPECT_TRUE(fits(1, 98, 1));
    EXPECT_FALSE(fits(99, 1, 1));
    EXPECT_FALSE(fits(1, 99, 1));
    // With the border, each side is 2^32: the product does not fit 64 bits.
    constexpr std::int64_t kLong = 4294967294;
    EXPECT_FALSE(fits(kLong, kLong, 1));
    EXPECT_FALSE(fits(kLong, 1, 1));
    EXPECT_FALSE(fits(1, kLong, kLong));
}

TEST(SmallScan, HandsOutEveryCutCellOfAllSmallGrids) {
    for (int x = 1; x <= 9; ++x) {
        for (int y = 1; y <= 9; ++y) {
            for (int z = 1; z <= 15; ++z) {
                expectCutCells({x, y, z});
            }
        }
    }
}

TEST(SmallScan, HandsOutEveryCutCellInOrder) {
    for (VolumeLayout const& layout : plainLayouts(/*spacing=*/3)) {
        for (Noise const noise : kAllNoises) {
            for (Triple const& size : {Triple{15, 15, 15}, {18, 13, 3}, {98, 1, 2}, {1, 98, 15}, {2, 73, 1}}) {
                expectCutCells(size, layout, noise);
            }
        }
    }
}

TEST(SmallScan, EveryVolumeOfEightVoxelsIsScannedAsLookedUp) {
    for (unsigned int voxels = 0; voxels < 256; ++voxels) {
        PlainVolume volume = PlainVolume::filled({2, 2, 2}, 0);
        for (unsigned int i = 0; i < 8; ++i) {
            volume.at(i % 2 != 0, i / 2 % 2 != 0, i / 4 != 0) = voxels >> i & 1U;
        }
        CellRecorder recorder;
        SmallScan(makeSampleGrid(volume.data(), volume.increments(), 1, {0, 0, 0}, {2, 2, 2})).handTo(recorder);
        ReferenceScan const reference({1, {0, 0, 0}, {2, 2, 2}});
        EXPECT_EQ(recorder.cells, reference.emissions([&](int x, int y, int z) { return volume.at(x, y, z); }));
    }
}

} // namespace
