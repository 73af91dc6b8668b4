// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NoiseGrid.h"

#include "src/scan/PlainScan.h"

#include <gtest/gtest.h>

namespace {

using namespace tamo::scan;
using namespace tamo::test;

void expectCutCells(Triple const& size, VolumeLayout const& layout = {}, Noise noise = Noise::kHalf) {
    SCOPED_TRACE(testing::Message() << size[0] << " x " << size[1] << " x " << size[2]);
    NoiseGrid const volume(size, layout, noise);
    PlainScan const scan(volume.grid());
    CellRecorder recorder;
    scan.handTo(recorder);
    ASSERT_EQ(recorder.cells, volume.cutCells());
    ASSERT_EQ(scan.countForeground(), volume.foreground());
}

TEST(PlainScan, HandsOutEveryCutCellOfAllSmallGrids) {
    for (int x = 1; x <= 4; ++x) {
        for (int y = 1; y <= 4; ++y) {
            for (int z = 1; z <= 4; ++z) {
                expectCutCells({x, y, z});
            }
        }
    }
}

TEST(PlainScan, HandsOutEveryCutCellInOrder) {
    for (VolumeLayout const& layout : plainLayouts(/*spacing=*/2)) {
        for (Noise const noise : kAllNoises) {
            for (Triple const& size : {Triple{13, 12, 11}, {1, 40, 3}, {2, 2, 60}, {50, 1, 1}}) {
                expectCutCells(size, layout, noise);
            }
        }
    }
}

} // namespace
