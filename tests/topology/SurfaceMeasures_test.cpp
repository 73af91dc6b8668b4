// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/ScannedSurface.h"
#include "support/volumes/DigitalObject.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <set>

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

double areaOf(GLObject const& object) {
    double area = 0;
    for (HalfTriangle const& triangle : drawnTriangles(object)) {
        HalfPoint const n = normalOf(triangle);
        area += std::sqrt(static_cast<double>(dot(n, n))) / 8;
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
        areas.push_back(areaOf(*object));
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

class SurfaceMeasures : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    [[nodiscard]] ScannedSurface scan(VoxelSet const& set) const { return {set.volume(), set.size(), _objects.list()}; }

    SystemList _objects{GetParam()};
};

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
        ScannedSurface const surface = scan(set);
        SurfaceTopology const topology(surface, GetParam() == Neighborhood::N6);
        EXPECT_TRUE(topology.isManifold);
        EXPECT_EQ(topology.components, 1);
        EXPECT_EQ(topology.euler, 2);
        double voxels = 0;
        set.forEach([&](Triple const& voxel) { voxels += set.has(voxel) ? 1 : 0; });
        // No voxel's cube is cut by more than its half, and only those at the surface are.
        double const volume = static_cast<double>(surface.volume48()) / 48;
        EXPECT_NEAR(volume / voxels, 1, 0.35 / radius);
    }
}

TEST_P(SurfaceMeasures, FlatFacesHaveTheirArea) {
    // A plate of 9 x 9 x 1 voxels: within its rim the surface is two planes, half a voxel above and below.
    VoxelSet plate({9, 9, 1});
    plate.forEach([&](Triple const& voxel) { plate.set(voxel, true); });
    double flat = 0;
    ScannedSurface const surface = scan(plate);
    for (ScannedSurface::Face const& face : surface.faces()) {
        HalfPoint const n = normalOf(face.corners);
        if (n[0] == 0 && n[1] == 0) {
            EXPECT_EQ(face.corners[0][2], n[2] > 0 ? 1 : -1);
            flat += std::abs(n[2]) / 8.0;
        }
    }
    EXPECT_GE(flat, 2 * 64.0);
    EXPECT_LE(flat, 2 * 81.0);
}

INSTANTIATE_TEST_SUITE_P(Systems, SurfaceMeasures, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

// Five fans of N6 start at a vertex from which an inner edge runs in a cell face. It is the polygon's own: only where
// two of the five share that face do the drawn triangles meet by four.
TEST(DrawnTrianglesOfSixNeighbors, MeetByTwosWhereNoneOfTheFiveIs) {
    std::set<unsigned int> const five = {0xbe, 0xd7, 0xde, 0xeb, 0xed};
    SystemList const objects(Neighborhood::N6);
    std::mt19937 engine(11);
    int without = 0;
    for (int round = 0; round < 400; ++round) {
        VoxelSet set({3, 3, 3});
        unsigned int const percent = 50 + static_cast<unsigned int>(round) % 45;
        set.forEach([&](Triple const& voxel) { set.set(voxel, engine() % 100 < percent); });
        bool hasAny = false;
        for (unsigned int cell = 0; cell < 8; ++cell) {
            unsigned int configuration = 0;
            for (unsigned int corner = 0; corner < 8; ++corner) {
                Triple voxel{};
                for (std::size_t axis = 0; axis < 3; ++axis) {
                    voxel[axis] = static_cast<int>((cell >> axis & 1U) + (corner >> axis & 1U));
                }
                configuration |= set.has(voxel) ? 1U << corner : 0U;
            }
            hasAny = hasAny || five.count(configuration) != 0;
        }
        bool const isClosed = SurfaceTopology({set.volume(), set.size(), objects.list()}, false).isClosed;
        EXPECT_TRUE(isClosed || hasAny) << round;
        without += hasAny ? 0 : 1;
    }
    EXPECT_GT(without, 50);
}

TEST(DrawnTrianglesOfSixNeighbors, MeetByFourWhereTwoOfTheFiveShareTheFace) {
    // Cells 0xd7 and 0xeb, side by side along x: the same two background voxels, on a diagonal of the shared face.
    VoxelSet set({3, 2, 2});
    set.forEach([&](Triple const& voxel) { set.set(voxel, true); });
    set.set({1, 0, 1}, false);
    set.set({1, 1, 0}, false);
    SystemList const objects(Neighborhood::N6);
    ScannedSurface const surface(set.volume(), set.size(), objects.list());
    EXPECT_FALSE(SurfaceTopology(surface, /*polygonsApart=*/false).isClosed);
    EXPECT_TRUE(SurfaceTopology(surface, /*polygonsApart=*/true).isManifold);
}

} // namespace
