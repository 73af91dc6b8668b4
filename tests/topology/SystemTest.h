// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/SystemName.h"
#include "support/oracle/SurfaceTopology.h"
#include "support/oracle/SystemList.h"
#include "support/volumes/VoxelSet.h"

#include <gtest/gtest.h>

#include <string>

namespace tamo::test {

/// Scans sets of voxels under one adjacency system.
class SystemTest : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    [[nodiscard]] ScannedSurface scan(VoxelSet const& set) const { return {set, _objects.list()}; }

    [[nodiscard]] SurfaceTopology topologyOf(VoxelSet const& set) const {
        // Five fans of N6 have an inner edge on a cell face, where a neighbour's may lie, too.
        return {scan(set), /*polygonsApart=*/GetParam() == Neighborhood::N6};
    }

    SystemList _objects{GetParam()};
};

/// Visits every set of voxels in a small box.
template <typename Visit> void forEachPattern(Triple const& size, Visit const& visit) {
    int const voxels = size[0] * size[1] * size[2];
    for (unsigned int bits = 0; bits < 1U << static_cast<unsigned int>(voxels); ++bits) {
        SCOPED_TRACE(testing::PrintToString(size) + ", pattern " + std::to_string(bits));
        visit(VoxelSet::pattern(size, bits));
    }
}

/// Visits every set of voxels in two cells side by side, along each axis.
template <typename Visit> void forEachPairOfCells(Visit const& visit) {
    for (Triple const& size : {Triple{3, 2, 2}, Triple{2, 3, 2}, Triple{2, 2, 3}}) {
        forEachPattern(size, visit);
    }
}

} // namespace tamo::test
