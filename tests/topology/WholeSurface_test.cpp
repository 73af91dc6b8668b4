// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "topology/SystemTest.h"

#include "support/oracle/CellVolume.h"
#include "support/volumes/VoxelComplex.h"

#include <random>

namespace {

using namespace tamo::test;

// Visits random sets of 2 to `largestSide` voxels a side and 5 to 95 % density.
template <typename Visit> void forEachRandomSet(int rounds, int largestSide, Visit const& visit) {
    std::mt19937 engine(7);
    for (int round = 0; round < rounds; ++round) {
        for (unsigned int percent = 5; percent <= 95; percent += 10) {
            SCOPED_TRACE("round " + std::to_string(round) + ", " + std::to_string(percent) + " %");
            visit(VoxelSet::random(engine, percent, largestSide));
        }
    }
}

// Visits all small sets, and large ones at random.
template <typename Visit> void forEachSet(Visit const& visit) {
    forEachPairOfCells(visit);
    forEachRandomSet(/*rounds=*/6, /*largestSide=*/20, visit);
}

using WholeSurface = SystemTest;

TEST_P(WholeSurface, IsAClosedOrientedManifold) {
    forEachSet([&](VoxelSet const& set) {
        SurfaceTopology const topology = topologyOf(set);
        EXPECT_TRUE(topology.isClosed);
        EXPECT_TRUE(topology.isManifold);
    });
}

TEST_P(WholeSurface, EulerNumberIsTwiceThatOfTheObject) {
    forEachSet([&](VoxelSet const& set) { EXPECT_EQ(topologyOf(set).euler, 2 * objectEuler(set, GetParam())); });
}

TEST_P(WholeSurface, EachComponentSeparatesOneOfForegroundFromOneOfBackground) {
    std::vector<Triple> const fg = neighborSteps(GetParam(), /*isForeground=*/true);
    std::vector<Triple> const bg = neighborSteps(GetParam(), /*isForeground=*/false);
    forEachSet([&](VoxelSet const& set) {
        EXPECT_EQ(topologyOf(set).components, set.components(fg) + set.complement().components(bg) - 1);
    });
}

TEST_P(WholeSurface, EnclosesTheSumOfItsCells) {
    std::vector<std::int64_t> volumes;
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        volumes.push_back(drawnVolume48(_objects[configuration], configuration));
    }
    forEachSet([&](VoxelSet const& set) {
        std::int64_t sum = 0;
        set.forEachCell([&](unsigned int configuration) { sum += volumes.at(configuration); });
        ScannedSurface const surface = scan(set);
        EXPECT_EQ(surface.volume48(), sum);
        EXPECT_EQ(surface.volume48() > 0, !surface.faces().empty());
    });
}

TEST_P(WholeSurface, WindsOnceAroundForegroundAndNotAroundBackground) {
    auto const expectWinding = [&](VoxelSet const& set) {
        ScannedSurface const surface = scan(set);
        set.complement().forEach([&](Triple const& place) {
            Triple const voxel = place - Triple{1, 1, 1};
            EXPECT_NEAR(surface.windingNumber(voxel + voxel), set.has(voxel) ? 1 : 0, 1e-9);
        });
    };
    forEachPattern({2, 2, 2}, expectWinding);
    forEachRandomSet(/*rounds=*/2, /*largestSide=*/5, expectWinding);
}

INSTANTIATE_TEST_SUITE_P(Systems, WholeSurface, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

} // namespace
