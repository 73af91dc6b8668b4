// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "topology/SystemTest.h"

#include <tamo/conn/GLConn.h>

#include <algorithm>

namespace {

using namespace tamo::test;

template <typename IsFound> std::vector<unsigned int> configurationsWhere(IsFound const& isFound) {
    std::vector<unsigned int> found;
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        if (isFound(configuration)) {
            found.push_back(configuration);
        }
    }
    return found;
}

// Returns whether a triangle is turned away from the link of one of its vertices. Normals are those of the links.
bool hasOpposingTriangle(GLObject const& object) {
    for (GLPolygon const* polygon : object) {
        for (auto const& indices : drawnIndices(*polygon)) {
            HalfTriangle const triangle = {halfPoint(*polygon, indices[0]), halfPoint(*polygon, indices[1]),
                                           halfPoint(*polygon, indices[2])};
            if (std::any_of(indices.begin(), indices.end(),
                            [&](unsigned int i) { return opposes(triangle, polygon->normal(i)); })) {
                return true;
            }
        }
    }
    return false;
}

TEST(DrawnTriangles, FollowTheirLinksButInTurnedConfigurations) {
    for (auto const config : {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I}) {
        GLObjectList list;
        GLConn().wrapLocal(config, &list, /*recomputeNormals=*/false);
        EXPECT_EQ(configurationsWhere([&](unsigned int i) { return hasOpposingTriangle(*list[i]); }),
                  turnedConfigurations(config))
            << systemName(config);
    }
}

TEST(DrawnTriangles, HaveAnInnerEdgeOnAFaceInTheTurnedConfigurationsOfN6Alone) {
    for (auto const config : kSurfaceSystems) {
        SystemList const objects(config);
        std::vector<unsigned int> const expected =
            config == Neighborhood::N6 ? turnedConfigurations(config) : std::vector<unsigned int>();
        EXPECT_EQ(
            configurationsWhere([&](unsigned int i) { return hasInnerEdgeOnCellFace(drawnTriangles(objects[i])); }),
            expected)
            << systemName(config);
    }
}

// Where two polygons have an inner edge at the same place, it is each one's own, but four drawn triangles meet in it.
TEST(DrawnTriangles, OfN6MeetByTwosButWhereTwoTurnedConfigurationsShareTheFace) {
    SystemList const objects(Neighborhood::N6);
    std::vector<std::array<unsigned int, 2>> pairs;
    forEachPairOfCells([&](VoxelSet const& set) {
        if (!SurfaceTopology(ScannedSurface(set, objects.list()), /*polygonsApart=*/false).isClosed) {
            pairs.push_back({set.configurationAt({0, 0, 0}), set.configurationAt(set.size() - Triple{2, 2, 2})});
        }
    });
    // Side by side along x: the same two background voxels, on a diagonal of the shared face.
    EXPECT_EQ(pairs, (std::vector<std::array<unsigned int, 2>>{{0xd7, 0xeb}}));
}

} // namespace
