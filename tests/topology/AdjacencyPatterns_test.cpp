// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/ScannedSurface.h"
#include "support/volumes/DigitalObject.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace tamo::test;

std::vector<Triple> const& diagonals() {
    static std::vector<Triple> const all = {{1, 1, 0},  {1, -1, 0}, {1, 0, 1},  {1, 0, -1}, {0, 1, 1},
                                            {0, 1, -1}, {1, 1, 1},  {1, 1, -1}, {1, -1, 1}, {1, -1, -1}};
    return all;
}

// The diagonals along which two foreground voxels touch without parting, written out.
std::vector<Triple> linkedDiagonals(Neighborhood::NHConfig config) {
    switch (config) {
    case Neighborhood::N6:
        return {};
    case Neighborhood::N26:
        return diagonals();
    case Neighborhood::N14I:
        return {{1, 1, 0}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1}};
    default:
        return {{1, 1, 0}, {1, 0, 1}, {0, 1, -1}, {1, 1, 1}};
    }
}

std::vector<Triple> linkedBackgroundDiagonals(Neighborhood::NHConfig config) {
    // What the foreground's links leave: all of N6's, none of N26's; the others are their own duals.
    return linkedDiagonals(config == Neighborhood::N6    ? Neighborhood::N26
                           : config == Neighborhood::N26 ? Neighborhood::N6
                                                         : config);
}

bool contains(std::vector<Triple> const& steps, Triple const& step) {
    return std::find(steps.begin(), steps.end(), step) != steps.end();
}

// A block of 4 x 4 x 4 of one value with two voxels of the other, the second one `step` from the first.
VoxelSet pairInBlock(Triple const& step, bool isForeground) {
    VoxelSet set({4, 4, 4});
    set.forEach([&](Triple const& voxel) { set.set(voxel, !isForeground); });
    Triple first = {1, 1, 1};
    Triple second = {1, 1, 1};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        first[axis] += step[axis] < 0 ? 1 : 0;
        second[axis] += step[axis] > 0 ? 1 : 0;
    }
    set.set(first, isForeground);
    set.set(second, isForeground);
    return set;
}

class AdjacencyPatterns : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    [[nodiscard]] SurfaceTopology topologyOf(VoxelSet const& set) const {
        return {ScannedSurface(set.volume(), set.size(), _objects.list()), GetParam() == Neighborhood::N6};
    }

    SystemList _objects{GetParam()};
};

TEST_P(AdjacencyPatterns, TwoVoxelsThatShareAFaceAreOne) {
    for (Triple const& step : {Triple{1, 0, 0}, Triple{0, 1, 0}, Triple{0, 0, 1}}) {
        EXPECT_EQ(topologyOf(pairInBlock(step, true)).components, 1);
        EXPECT_EQ(topologyOf(pairInBlock(step, false)).components, 2) << "the block and one hole";
    }
}

TEST_P(AdjacencyPatterns, TwoVoxelsAlongADiagonalAreOneWhereItIsALink) {
    for (Triple const& step : diagonals()) {
        SurfaceTopology const topology = topologyOf(pairInBlock(step, true));
        std::int64_t const expected = contains(linkedDiagonals(GetParam()), step) ? 1 : 2;
        EXPECT_EQ(topology.components, expected) << step[0] << " " << step[1] << " " << step[2];
        EXPECT_EQ(topology.euler, 2 * expected);
    }
}

TEST_P(AdjacencyPatterns, TwoHolesAlongADiagonalAreOneWhereItIsABackgroundLink) {
    for (Triple const& step : diagonals()) {
        SurfaceTopology const topology = topologyOf(pairInBlock(step, false));
        std::int64_t const expected = contains(linkedBackgroundDiagonals(GetParam()), step) ? 2 : 3;
        EXPECT_EQ(topology.components, expected) << step[0] << " " << step[1] << " " << step[2];
        EXPECT_EQ(topology.euler, 2 * expected);
    }
}

TEST_P(AdjacencyPatterns, TwoVoxelsApartAreTwo) {
    VoxelSet set({3, 3, 3});
    set.set({0, 0, 0}, true);
    set.set({2, 0, 0}, true);
    EXPECT_EQ(topologyOf(set).components, 2);
}

// Fills a box with the bits of a number.
VoxelSet patternOf(Triple const& size, unsigned int bits) {
    VoxelSet set(size);
    unsigned int place = 0;
    set.forEach([&](Triple const& voxel) { set.set(voxel, (bits >> place++ & 1U) != 0); });
    return set;
}

TEST_P(AdjacencyPatterns, EveryPatternOfTwoCellsSideBySideObeysTheLaws) {
    std::vector<Triple> const fg = neighborSteps(GetParam(), /*isForeground=*/true);
    std::vector<Triple> const bg = neighborSteps(GetParam(), /*isForeground=*/false);
    for (unsigned int bits = 1; bits < 4096; ++bits) {
        SCOPED_TRACE(bits);
        VoxelSet const set = patternOf({3, 2, 2}, bits);
        SurfaceTopology const topology = topologyOf(set);
        EXPECT_TRUE(topology.isManifold);
        EXPECT_EQ(topology.components, set.components(fg) + set.complement().components(bg) - 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Systems, AdjacencyPatterns, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

// N8 and N12 are served with the tetrahedra of N14II.
class SharedAdjacencyPatterns : public AdjacencyPatterns {};

TEST_P(SharedAdjacencyPatterns, PartAlongTheDiagonalsOfTheTetrahedra) {
    for (Triple const& step : diagonals()) {
        bool const isLinked = contains(linkedDiagonals(Neighborhood::N14II), step);
        EXPECT_EQ(topologyOf(pairInBlock(step, true)).components, isLinked ? 1 : 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Systems, SharedAdjacencyPatterns, testing::Values(Neighborhood::N8, Neighborhood::N12),
                         nameOfSystem);

} // namespace
