// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/ScannedSurface.h"
#include "support/volumes/DigitalObject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using namespace tamo::test;

VoxelSet randomSet(std::mt19937& engine, unsigned int percent, int largestSide) {
    Triple size{};
    for (int& side : size) {
        side = 2 + static_cast<int>(engine() % static_cast<unsigned int>(largestSide - 1));
    }
    VoxelSet set(size);
    set.forEach([&](Triple const& voxel) { set.set(voxel, engine() % 100 < percent); });
    return set;
}

// Visits random sets of 2 to `largestSide` voxels a side and 5 to 95 % density.
template <typename Visit> void forEachRandomSet(int rounds, int largestSide, Visit const& visit) {
    std::mt19937 engine(7);
    for (int round = 0; round < rounds; ++round) {
        for (unsigned int percent = 5; percent <= 95; percent += 10) {
            SCOPED_TRACE("round " + std::to_string(round) + ", " + std::to_string(percent) + " %");
            visit(randomSet(engine, percent, largestSide));
        }
    }
}

class WholeSurface : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    [[nodiscard]] ScannedSurface scan(VoxelSet const& set) const { return {set.volume(), set.size(), _objects.list()}; }

    // Five fans of N6 have an inner edge on a cell face, where a neighbour's may lie, too.
    [[nodiscard]] static bool polygonsApart() { return GetParam() == Neighborhood::N6; }

    // Returns the Euler number of the object whose boundary the surface is.
    [[nodiscard]] static std::int64_t objectEuler(VoxelSet const& set) {
        switch (GetParam()) {
        case Neighborhood::N6:
            return set.euler(VoxelComplex::cubes());
        case Neighborhood::N26:
            // The background is the rest of a ball, grown to space with a point at infinity.
            return set.complement().euler(VoxelComplex::cubes()) - 1;
        default:
            return set.euler(VoxelComplex::tetrahedra(GetParam()));
        }
    }

    SystemList _objects{GetParam()};
};

TEST_P(WholeSurface, IsAClosedOrientedManifold) {
    forEachRandomSet(6, 16, [&](VoxelSet const& set) {
        SurfaceTopology const topology(scan(set), polygonsApart());
        EXPECT_TRUE(topology.isClosed);
        EXPECT_TRUE(topology.isManifold);
    });
}

TEST_P(WholeSurface, EulerNumberIsTwiceThatOfTheObject) {
    forEachRandomSet(4, 16, [&](VoxelSet const& set) {
        EXPECT_EQ(SurfaceTopology(scan(set), polygonsApart()).euler, 2 * objectEuler(set));
    });
}

TEST_P(WholeSurface, PartsOneComponentFromTheNextEachTime) {
    std::vector<Triple> const fg = neighborSteps(GetParam(), /*isForeground=*/true);
    std::vector<Triple> const bg = neighborSteps(GetParam(), /*isForeground=*/false);
    forEachRandomSet(4, 16, [&](VoxelSet const& set) {
        EXPECT_EQ(SurfaceTopology(scan(set), polygonsApart()).components,
                  set.components(fg) + set.complement().components(bg) - 1);
    });
}

TEST_P(WholeSurface, WindsOnceAroundForegroundAndNotAroundBackground) {
    forEachRandomSet(2, 5, [&](VoxelSet const& set) {
        ScannedSurface const surface = scan(set);
        VoxelSet const grown(Triple{set.size()[0] + 2, set.size()[1] + 2, set.size()[2] + 2});
        grown.forEach([&](Triple const& place) {
            Triple const voxel = {place[0] - 1, place[1] - 1, place[2] - 1};
            double const expected = set.has(voxel) ? 1 : 0;
            EXPECT_NEAR(surface.windingNumber({2 * voxel[0], 2 * voxel[1], 2 * voxel[2]}), expected, 1e-9);
        });
    });
}

// Returns 48 times the volume that a configuration's surface keeps of the cell's foreground side: the flux through its
// triangles and through what they leave of each face, seen from the cell's centre.
std::int64_t ownVolume48(GLObject const& object, unsigned int configuration) {
    HalfPoint const middle = {1, 1, 1};
    std::vector<HalfTriangle> const triangles = drawnTriangles(object);
    std::int64_t flux = 0;
    for (HalfTriangle const& t : triangles) {
        flux += dot(t[0] - middle, cross(t[1] - middle, t[2] - middle));
    }
    std::vector<HalfEdge> const outline = outlineOf(triangles);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (int const side : {0, 2}) {
            // Twice the foreground's area on the face, from the face's centre: the outline the other way round, and the
            // foreground's share of the four cell edges, which lie half a voxel off.
            HalfPoint outward{};
            outward[axis] = side - 1;
            for (HalfEdge const& edge : outline) {
                if (edge[0][axis] == side && edge[1][axis] == side) {
                    flux -= dot(outward, cross(edge[0] - middle, edge[1] - middle));
                }
            }
            for (unsigned int corner = 0; corner < 8; ++corner) {
                bool const isOnFace = 2 * static_cast<int>(corner >> axis & 1U) == side;
                // A foreground corner holds the halves of the two edges that meet in it on the face.
                flux += isOnFace && (configuration >> corner & 1U) != 0 ? 2 : 0;
            }
        }
    }
    return flux;
}

TEST_P(WholeSurface, EveryConfigurationKeepsAPartOfItsCell) {
    for (unsigned int configuration = 1; configuration < 255; ++configuration) {
        std::int64_t const volume = ownVolume48(_objects[configuration], configuration);
        EXPECT_GT(volume, 0) << configuration;
        EXPECT_LT(volume, 48) << configuration;
    }
}

TEST_P(WholeSurface, EnclosesTheSumOfItsCells) {
    forEachRandomSet(4, 16, [&](VoxelSet const& set) {
        std::int64_t sum = 0;
        VoxelSet const grown = set.complement();
        grown.forEach([&](Triple const& place) {
            unsigned int configuration = 0;
            for (int corner = 0; corner < 8; ++corner) {
                Triple const voxel = {place[0] - 1 + corner % 2, place[1] - 1 + corner / 2 % 2,
                                      place[2] - 1 + corner / 4};
                configuration |= set.has(voxel) ? 1U << corner : 0U;
            }
            sum += ownVolume48(_objects[configuration], configuration);
        });
        ScannedSurface const surface = scan(set);
        EXPECT_EQ(surface.volume48(), sum);
        EXPECT_EQ(surface.volume48() > 0, !surface.faces().empty());
    });
}

INSTANTIATE_TEST_SUITE_P(Systems, WholeSurface, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

} // namespace
