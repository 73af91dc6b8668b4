// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/TAMO.h>

#include "support/oracle/WeldedMesh.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <random>
#include <vector>

// Puts the surface of whole volumes together cell by cell, straight from the object list.

namespace {

using tamo::test::WeldedMesh;

// A box of samples with background all around.
struct Volume {
    std::array<int, 3> size;
    std::vector<bool> samples;

    [[nodiscard]] bool at(int x, int y, int z) const {
        bool const isInside = x >= 0 && y >= 0 && z >= 0 && x < size[0] && y < size[1] && z < size[2];
        return isInside && samples.at(indexOf(x, y, z));
    }

    [[nodiscard]] std::size_t indexOf(int x, int y, int z) const {
        int const index = x + size[0] * (y + size[1] * z);
        return static_cast<std::size_t>(index);
    }

    // Returns the configuration of the cell whose lowest corner is the sample (x, y, z).
    [[nodiscard]] unsigned int configurationAt(int x, int y, int z) const {
        unsigned int configuration = 0;
        for (int corner = 0; corner < 8; ++corner) {
            bool const isForeground = at(x + corner % 2, y + corner / 2 % 2, z + corner / 4);
            configuration |= isForeground ? 1U << corner : 0U;
        }
        return configuration;
    }

    template <typename Visit> void forEachCell(Visit visit) const {
        for (int z = -1; z < size[2]; ++z) {
            for (int y = -1; y < size[1]; ++y) {
                for (int x = -1; x < size[0]; ++x) {
                    visit(x, y, z, configurationAt(x, y, z));
                }
            }
        }
    }
};

Volume randomVolume(std::mt19937& random, unsigned int percent) {
    Volume volume;
    for (int& side : volume.size) {
        side = static_cast<int>(2 + random() % 11);
    }
    volume.samples.resize(volume.indexOf(0, 0, volume.size[2]));
    for (std::size_t i = 0; i < volume.samples.size(); ++i) {
        volume.samples[i] = random() % 100 < percent;
    }
    return volume;
}

WeldedMesh::Point halfVoxels(GLVec3f const& position, int x, int y, int z) {
    return {2 * x + static_cast<int>(2 * position.x), 2 * y + static_cast<int>(2 * position.y),
            2 * z + static_cast<int>(2 * position.z)};
}

WeldedMesh surfaceOf(Volume const& volume, GLObjectList const& list) {
    WeldedMesh mesh;
    volume.forEachCell([&](int x, int y, int z, unsigned int configuration) {
        for (GLPolygon const* polygon : *list[configuration]) {
            auto const corner = [&](unsigned int i) { return halfVoxels(polygon->vertex(i), x, y, z); };
            for (unsigned int i = 1; i + 1 < polygon->size(); ++i) {
                mesh.addTriangle(corner(0), corner(i), corner(i + 1));
            }
        }
    });
    return mesh;
}

// Returns 48 times the volume inside: cut at the midpoints, a tetrahedron keeps 1, 4 or 7 eighths of its sixth.
long long volume48Of(Volume const& volume) {
    std::array<unsigned int, 6> const tetrahedra = {0x2b, 0x8d, 0x95, 0xa9, 0xb1, 0xd4};
    std::array<long long, 5> const eighths = {0, 1, 4, 7, 8};
    long long sum = 0;
    volume.forEachCell([&](int /*x*/, int /*y*/, int /*z*/, unsigned int configuration) {
        for (unsigned int tetrahedron : tetrahedra) {
            sum += eighths.at(std::bitset<8>(configuration & tetrahedron).count());
        }
    });
    return sum;
}

class CombinedSurface : public testing::TestWithParam<unsigned int> {
  protected:
    void SetUp() override { GLObjectListForNeighborhood(Neighborhood::N14II, _list); }

    GLObjectList _list;
};

TEST_P(CombinedSurface, IsAClosedOrientedManifoldThatLooksOutward) {
    std::mt19937 random(GetParam());
    for (int round = 0; round < 12; ++round) {
        Volume const volume = randomVolume(random, GetParam());
        WeldedMesh const mesh = surfaceOf(volume, _list);
        ASSERT_TRUE(mesh.isClosed()) << "round " << round;
        EXPECT_TRUE(mesh.isManifold()) << "round " << round;
        EXPECT_EQ(mesh.volume48(), volume48Of(volume)) << "round " << round;
        EXPECT_EQ(mesh.volume48() > 0, mesh.triangleCount() > 0) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(PercentForeground, CombinedSurface, testing::Values(5, 10, 20, 35, 50, 65, 80, 90, 95));

class KnownSurface : public CombinedSurface {};

TEST_F(KnownSurface, OfASingleVoxelIsASphere) {
    Volume const voxel{{1, 1, 1}, {true}};
    WeldedMesh const mesh = surfaceOf(voxel, _list);
    EXPECT_TRUE(mesh.isClosed() && mesh.isManifold());
    EXPECT_EQ(mesh.eulerCharacteristic(), 2);
    // One vertex on each of the 14 links of the voxel.
    EXPECT_EQ(mesh.triangleCount(), 24U);
}

TEST_F(KnownSurface, OfAFrameIsATorus) {
    Volume const frame{{3, 3, 1}, {true, true, true, true, false, true, true, true, true}};
    WeldedMesh const mesh = surfaceOf(frame, _list);
    EXPECT_TRUE(mesh.isClosed() && mesh.isManifold());
    EXPECT_EQ(mesh.eulerCharacteristic(), 0);
}

TEST_F(KnownSurface, JoinsTwoVoxelsExactlyAcrossTheLinksOfTheSystem) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N14II);
    std::vector<unsigned int> links;
    for (unsigned int i = 0; i < n.getFgConnSize(); ++i) {
        links.push_back(n.getFgConn(i));
    }
    for (unsigned int i = 0; i < n.getConnSize(); ++i) {
        unsigned int const link = n.getConn(i);
        Volume pair{{2, 2, 2}, std::vector<bool>(8)};
        for (unsigned int corner = 0; corner < 8; ++corner) {
            pair.samples[corner] = (link >> corner & 1U) != 0;
        }
        WeldedMesh const mesh = surfaceOf(pair, _list);
        bool const isLinked = std::find(links.begin(), links.end(), link) != links.end();
        EXPECT_TRUE(mesh.isClosed() && mesh.isManifold()) << link;
        EXPECT_EQ(mesh.eulerCharacteristic(), isLinked ? 2 : 4) << "one sphere or two, link " << link;
    }
}

} // namespace
