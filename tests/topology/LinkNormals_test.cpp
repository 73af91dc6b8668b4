// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/DrawnSurface.h"

#include <tamo/conn/GLConn.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using namespace tamo::test;

TEST(LinkNormals, NormalsAreNumbersOfUnitLength) {
    for (auto const config : {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I}) {
        GLObjectList list;
        GLConn().wrapLocal(config, &list, /*recomputeNormals=*/false);
        EXPECT_EQ(configurationsWithABadNormal(list), std::vector<unsigned int>());
    }
}

// Tells whether a vertex's normal leads along a link from a foreground to a background corner.
bool leadsOutward(unsigned int configuration, float const* record) {
    unsigned int ahead = 0;
    unsigned int behind = 0;
    for (unsigned int axis = 0; axis < 3; ++axis) {
        float const halfLink = record[axis] > 0 ? 0.5F : record[axis] < 0 ? -0.5F : 0.0F;
        ahead |= record[3 + axis] + halfLink > 0.75F ? 1U << axis : 0U;
        behind |= record[3 + axis] - halfLink > 0.75F ? 1U << axis : 0U;
    }
    return (configuration >> ahead & 1U) == 0 && (configuration >> behind & 1U) == 1;
}

// The tube around 0-7 repeats its first vertex, removes the original and repeats the next: both repetitions share one
// normal slot, so that the older takes over the newer one's link.
TEST(LinkNormals, NormalsLeadOutwardButForTwoRepeatedVertices) {
    for (auto const config : {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I}) {
        GLObjectList list;
        GLConn().wrapLocal(config, &list, /*recomputeNormals=*/false);
        std::vector<unsigned int> others;
        for (unsigned int configuration = 1; configuration < 255; ++configuration) {
            for (GLPolygon const* polygon : *list[configuration]) {
                for (unsigned int i = 0; i < polygon->size(); ++i) {
                    if (!leadsOutward(configuration, polygon->vData(i))) {
                        others.push_back(configuration);
                    }
                }
            }
        }
        std::vector<unsigned int> const expected =
            config == Neighborhood::N14I ? std::vector<unsigned int>{0x7e, 0x81} : std::vector<unsigned int>();
        EXPECT_EQ(others, expected) << systemName(config);
    }
}

// Tells whether a triangle is turned away from the link of one of its vertices. Normals are those of the links.
bool hasOpposingTriangle(GLObject const& object) {
    for (GLPolygon const* polygon : object) {
        for (auto const& [a, b, c] : drawnIndices(*polygon)) {
            HalfTriangle const triangle = {halfPoint(*polygon, a), halfPoint(*polygon, b), halfPoint(*polygon, c)};
            if (opposes(triangle, polygon->normal(a)) || opposes(triangle, polygon->normal(b)) ||
                opposes(triangle, polygon->normal(c))) {
                return true;
            }
        }
    }
    return false;
}

std::vector<unsigned int> opposingConfigurations(Neighborhood::NHConfig config) {
    GLObjectList list;
    GLConn().wrapLocal(config, &list, /*recomputeNormals=*/false);
    std::vector<unsigned int> opposing;
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        if (hasOpposingTriangle(*list[configuration])) {
            opposing.push_back(configuration);
        }
    }
    return opposing;
}

// Under N6 the start of a face diagonal's complement is chosen by the foreground's two lowest corners, which are not
// the diagonal: five such fans run back over themselves. Under N14I so does one triangle in each larger half of a path
// around the centre link, and in each fan of three face corners with eight vertices.
TEST(LinkNormals, TrianglesFollowTheirLinksButForKnownConfigurations) {
    EXPECT_EQ(opposingConfigurations(Neighborhood::N6), (std::vector<unsigned int>{0xbe, 0xd7, 0xde, 0xeb, 0xed}));
    EXPECT_EQ(opposingConfigurations(Neighborhood::N26), std::vector<unsigned int>());
    EXPECT_EQ(opposingConfigurations(Neighborhood::N14I),
              (std::vector<unsigned int>{0x2e, 0x3a, 0x4e, 0x5c, 0x72, 0x74, 0x87, 0x8b, 0x8d, 0x93, 0x95, 0xa3, 0xa9,
                                         0xb1, 0xc5, 0xc9, 0xd1, 0xe1}));
}

// Lists the configurations in which an edge between two triangles of the cell lies on a cell face.
std::vector<unsigned int> configurationsWithAnInnerEdgeOnAFace(Neighborhood::NHConfig config) {
    SystemList const objects(config);
    std::vector<unsigned int> found;
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        std::set<HalfEdge> edges;
        for (HalfTriangle const& triangle : drawnTriangles(objects[configuration])) {
            for (std::size_t i = 0; i < 3; ++i) {
                edges.insert({triangle[i], triangle[(i + 1) % 3]});
            }
        }
        bool const isFound = std::any_of(edges.begin(), edges.end(), [&](HalfEdge const& edge) {
            return isOnCellFace(edge) && edges.count({edge[1], edge[0]}) == 1;
        });
        if (isFound) {
            found.push_back(configuration);
        }
    }
    return found;
}

TEST(LinkNormals, TheSameFiveHaveAnInnerEdgeOnAFace) {
    EXPECT_EQ(configurationsWithAnInnerEdgeOnAFace(Neighborhood::N6),
              (std::vector<unsigned int>{0xbe, 0xd7, 0xde, 0xeb, 0xed}));
    for (auto const config : {Neighborhood::N26, Neighborhood::N14I, Neighborhood::N14II}) {
        EXPECT_EQ(configurationsWithAnInnerEdgeOnAFace(config), std::vector<unsigned int>()) << systemName(config);
    }
}

} // namespace
