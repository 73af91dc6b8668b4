// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "topology/SystemTest.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using namespace tamo::test;

constexpr double kPi = 3.141592653589793;

VoxelSet ball(double radius) {
    int const side = 2 * static_cast<int>(radius) + 4;
    // Off the grid's symmetry, as any plane of the surface should be met at any height.
    std::array<double, 3> const centre = {side / 2.0 - 0.37, side / 2.0 - 0.58, side / 2.0 - 0.71};
    VoxelSet set({side, side, side});
    set.forEach([&](Triple const& voxel) {
        double squared = 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            squared += (voxel[axis] - centre[axis]) * (voxel[axis] - centre[axis]);
        }
        set.set(voxel, squared <= radius * radius);
    });
    return set;
}

double drawnArea(GLObject const& object) {
    double area = 0;
    for (HalfTriangle const& triangle : drawnTriangles(object)) {
        area += areaOf(triangle);
    }
    return area;
}

// Returns the area of the surface of a half space per unit of its true area. A plane passes through a cell at every
// height equally often: between the heights of two corners the configuration stays the same.
double areaFactor(std::vector<double> const& areas, std::array<double, 3> const& direction) {
    std::array<std::pair<double, unsigned int>, 8> corners;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        double height = 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            height += (corner >> axis & 1U) != 0 ? direction[axis] : 0;
        }
        corners[corner] = {height, corner};
    }
    std::sort(corners.begin(), corners.end());
    double factor = 0;
    unsigned int configuration = 0;
    for (std::size_t i = 0; i + 1 < corners.size(); ++i) {
        configuration |= 1U << corners[i].second;
        factor += areas[configuration] * (corners[i + 1].first - corners[i].first);
    }
    return factor;
}

// Returns the mean factor over directions spread evenly: the limit for large balls.
double ballLimit(GLObjectList const& list) {
    std::vector<double> areas;
    for (GLObject const* object : list) {
        areas.push_back(drawnArea(*object));
    }
    constexpr int kDirections = 20000;
    double const goldenAngle = kPi * (3 - std::sqrt(5.0));
    double sum = 0;
    for (int i = 0; i < kDirections; ++i) {
        double const z = 1 - (2 * i + 1.0) / kDirections;
        double const radius = std::sqrt(1 - z * z);
        sum += areaFactor(areas, {radius * std::cos(goldenAngle * i), radius * std::sin(goldenAngle * i), z});
    }
    return sum / kDirections;
}

using SurfaceMeasures = SystemTest;

TEST_P(SurfaceMeasures, AreaOfABallTendsToTheMeanOverAllPlanes) {
    // Edges alone cut a plane into facets that lie closer to it than those of six tetrahedra.
    double const limit = ballLimit(_objects.list());
    switch (GetParam()) {
    case Neighborhood::N6:
    case Neighborhood::N26:
        EXPECT_NEAR(limit, 1.080, 0.001);
        break;
    case Neighborhood::N14I:
        EXPECT_NEAR(limit, 1.272, 0.001);
        break;
    default:
        EXPECT_NEAR(limit, 1.306, 0.001);
    }
    double const radius = 24.3;
    EXPECT_NEAR(scan(ball(radius)).area() / (4 * kPi * radius * radius), limit, 0.005);
}

TEST_P(SurfaceMeasures, BallIsASphereOfItsVolume) {
    for (double const radius : {1.2, 3.7, 9.6, 24.3}) {
        VoxelSet const set = ball(radius);
        SurfaceTopology const topology = topologyOf(set);
        EXPECT_TRUE(topology.isManifold);
        EXPECT_EQ(topology.components, 1);
        EXPECT_EQ(topology.euler, 2);
        double voxels = 0;
        set.forEach([&](Triple const& voxel) { voxels += set.has(voxel) ? 1 : 0; });
        // No voxel's cube is cut by more than its half, and only those at the surface are.
        double const volume = static_cast<double>(scan(set).volume48()) / 48;
        EXPECT_NEAR(volume / voxels, 1, 0.35 / radius);
    }
}

TEST_P(SurfaceMeasures, FlatFacesHaveTheirArea) {
    // A plate of 9 x 9 x 1 voxels: within its rim the surface is two planes, half a voxel above and below.
    double flat = 0;
    ScannedSurface const surface = scan(VoxelSet::full({9, 9, 1}));
    for (ScannedSurface::Face const& face : surface.faces()) {
        HalfPoint const n = normalOf(face.corners);
        if (n[0] == 0 && n[1] == 0) {
            EXPECT_EQ(face.corners[0][2], n[2] > 0 ? 1 : -1);
            flat += areaOf(face.corners);
        }
    }
    EXPECT_GE(flat, 2 * 64.0);
    EXPECT_LE(flat, 2 * 81.0);
}

INSTANTIATE_TEST_SUITE_P(Systems, SurfaceMeasures, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

} // namespace
