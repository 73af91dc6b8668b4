// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "topology/SystemTest.h"

#include <algorithm>

namespace {

using namespace tamo::test;

std::vector<Triple> const& diagonals() {
    static std::vector<Triple> const all = {{1, 1, 0},  {1, -1, 0}, {1, 0, 1},  {1, 0, -1}, {0, 1, 1},
                                            {0, 1, -1}, {1, 1, 1},  {1, 1, -1}, {1, -1, 1}, {1, -1, -1}};
    return all;
}

// The diagonals along which two foreground voxels are connected, written out.
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

bool contains(std::vector<Triple> const& steps, Triple const& step) {
    return std::find(steps.begin(), steps.end(), step) != steps.end();
}

std::int64_t countShared(std::vector<Triple> const& a, std::vector<Triple> const& b) {
    return std::count_if(a.begin(), a.end(), [&](Triple const& step) { return contains(b, step); });
}

// Returns a block of 4 x 4 x 4 of one value with two voxels of the other, the second one `step` from the first.
VoxelSet pairInBlock(Triple const& step, bool isForeground) {
    Triple const size = {4, 4, 4};
    VoxelSet set = isForeground ? VoxelSet(size) : VoxelSet::full(size);
    Triple first = {1, 1, 1};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        first.at(axis) += step.at(axis) < 0 ? 1 : 0;
    }
    set.set(first, isForeground);
    set.set(first + step, isForeground);
    return set;
}

class KnownSurface : public SystemTest {
  protected:
    void expectSpheres(VoxelSet const& set, std::int64_t count) const {
        SurfaceTopology const topology = topologyOf(set);
        EXPECT_TRUE(topology.isManifold);
        EXPECT_EQ(topology.components, count);
        EXPECT_EQ(topology.euler, 2 * count);
    }
};

TEST_P(KnownSurface, OfOneVoxelIsASphereWithAVertexOnEachLinkThatBothValuesHave) {
    VoxelSet const voxel = VoxelSet::full({1, 1, 1});
    expectSpheres(voxel, 1);
    std::int64_t const shared = countShared(neighborSteps(GetParam(), /*isForeground=*/true),
                                            neighborSteps(GetParam(), /*isForeground=*/false));
    // Links leave both ways; a sphere of n vertices has 2 n - 4 triangles.
    EXPECT_EQ(scan(voxel).faces().size(), static_cast<std::size_t>(2 * (2 * shared) - 4));
}

TEST_P(KnownSurface, OfAFrameIsATorus) {
    VoxelSet frame = VoxelSet::full({3, 3, 1});
    frame.set({1, 1, 0}, false);
    SurfaceTopology const topology = topologyOf(frame);
    EXPECT_TRUE(topology.isManifold);
    EXPECT_EQ(topology.components, 1);
    EXPECT_EQ(topology.euler, 0);
}

TEST_P(KnownSurface, OfTwoVoxelsThatShareAFaceIsOneSphere) {
    for (Triple const& step : {Triple{1, 0, 0}, Triple{0, 1, 0}, Triple{0, 0, 1}}) {
        SCOPED_TRACE(testing::PrintToString(step));
        expectSpheres(pairInBlock(step, /*isForeground=*/true), 1);
        // The block and one hole.
        expectSpheres(pairInBlock(step, /*isForeground=*/false), 2);
    }
}

TEST_P(KnownSurface, OfTwoVoxelsAlongADiagonalIsOneSphereWhereItIsALink) {
    for (Triple const& step : diagonals()) {
        SCOPED_TRACE(testing::PrintToString(step));
        bool const isLinked = contains(linkedDiagonals(GetParam()), step);
        expectSpheres(pairInBlock(step, /*isForeground=*/true), isLinked ? 1 : 2);
    }
}

TEST_P(KnownSurface, OfTwoHolesAlongADiagonalIsOneSphereWhereItIsALinkOfTheDualSystem) {
    for (Triple const& step : diagonals()) {
        SCOPED_TRACE(testing::PrintToString(step));
        bool const isLinked = contains(linkedDiagonals(dualOf(GetParam())), step);
        // The block's own surface comes on top.
        expectSpheres(pairInBlock(step, /*isForeground=*/false), isLinked ? 2 : 3);
    }
}

TEST_P(KnownSurface, OfTwoVoxelsApartIsTwoSpheres) {
    VoxelSet set({3, 3, 3});
    set.set({0, 0, 0}, true);
    set.set({2, 0, 0}, true);
    expectSpheres(set, 2);
}

INSTANTIATE_TEST_SUITE_P(Systems, KnownSurface, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

// N8 and N12 are served with the tetrahedra of N14II.
class KnownSurfaceOfTetrahedra : public KnownSurface {};

TEST_P(KnownSurfaceOfTetrahedra, SeparatesVoxelsAsUnderN14II) {
    for (Triple const& step : diagonals()) {
        SCOPED_TRACE(testing::PrintToString(step));
        bool const isLinked = contains(linkedDiagonals(Neighborhood::N14II), step);
        expectSpheres(pairInBlock(step, /*isForeground=*/true), isLinked ? 1 : 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Systems, KnownSurfaceOfTetrahedra, testing::Values(Neighborhood::N8, Neighborhood::N12),
                         nameOfSystem);

} // namespace
