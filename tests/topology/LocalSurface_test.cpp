// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/DrawnSurface.h"
#include "support/oracle/SystemList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

// Two cells that share a face share its four samples. Where the outline that a cell leaves on a face follows from these
// samples alone, and the two cells run along it in opposite directions, no surface has an open edge at a face.

namespace {

using namespace tamo::test;

class LocalSurface : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    [[nodiscard]] std::vector<HalfEdge> outline(unsigned int configuration) const {
        return outlineOf(drawnTriangles(_objects[configuration]));
    }

    SystemList _objects{GetParam()};
};

TEST_P(LocalSurface, EdgesInsideTheCellAreRunOnceInEachDirection) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        SCOPED_TRACE(configuration);
        std::map<HalfEdge, int> const uses = edgeCounts(drawnTriangles(_objects[configuration]));
        for (auto const& [edge, count] : uses) {
            if (!isOnCellFace(edge)) {
                EXPECT_EQ(count, 1);
                EXPECT_EQ((uses.count({edge[1], edge[0]})), 1U);
            }
        }
    }
}

TEST_P(LocalSurface, OutlineLiesOnTheFacesAndRunsOnceAlongEachEdge) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        SCOPED_TRACE(configuration);
        std::vector<HalfEdge> const edges = outline(configuration);
        EXPECT_TRUE(std::all_of(edges.begin(), edges.end(), isOnCellFace));
        EXPECT_EQ(std::adjacent_find(edges.begin(), edges.end()), edges.end());
    }
}

// Returns the four values of a cell face, from the two other axes' low corner on.
unsigned int facePattern(unsigned int configuration, std::size_t axis, bool isHigh) {
    unsigned int pattern = 0;
    unsigned int place = 0;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        if (((corner >> axis & 1U) != 0) == isHigh) {
            pattern |= (configuration >> corner & 1U) << place++;
        }
    }
    return pattern;
}

// Returns the part of an outline on a cell face, its points moved to the low face of the axis.
std::vector<HalfEdge> onFace(std::vector<HalfEdge> const& outline, std::size_t axis, bool isHigh) {
    int const plane = isHigh ? 2 : 0;
    std::vector<HalfEdge> face;
    for (HalfEdge edge : outline) {
        if (edge[0].at(axis) == plane && edge[1].at(axis) == plane) {
            edge[0].at(axis) = 0;
            edge[1].at(axis) = 0;
            face.push_back(edge);
        }
    }
    return face;
}

std::vector<HalfEdge> reversed(std::vector<HalfEdge> edges) {
    for (HalfEdge& edge : edges) {
        std::swap(edge[0], edge[1]);
    }
    std::sort(edges.begin(), edges.end());
    return edges;
}

TEST_P(LocalSurface, OutlineOnAFaceFollowsFromItsFourSamplesAndCancelsWithTheNeighbor) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::map<unsigned int, std::vector<HalfEdge>> known;
        for (unsigned int configuration = 0; configuration < 256; ++configuration) {
            std::vector<HalfEdge> const edges = outline(configuration);
            for (bool const isHigh : {false, true}) {
                // The high face of a cell is the low face of the next one, seen from the other side.
                std::vector<HalfEdge> face = onFace(edges, axis, isHigh);
                face = isHigh ? reversed(face) : face;
                auto const entry = known.emplace(facePattern(configuration, axis, isHigh), face).first;
                EXPECT_EQ(entry->second, face) << configuration << ", axis " << axis << (isHigh ? " high" : " low");
            }
        }
        EXPECT_EQ(known.size(), 16U);
    }
}

TEST_P(LocalSurface, OutlineCutsTheFacesWithBothValuesAndNoOthers) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        std::vector<HalfEdge> const edges = outline(configuration);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            for (bool const isHigh : {false, true}) {
                unsigned int const pattern = facePattern(configuration, axis, isHigh);
                EXPECT_EQ(onFace(edges, axis, isHigh).empty(), pattern == 0 || pattern == 15)
                    << configuration << ", axis " << axis << (isHigh ? " high" : " low");
            }
        }
    }
}

TEST_P(LocalSurface, ComplementUnderTheDualSystemTurnsTheOutlineAround) {
    SystemList const dual(dualOf(GetParam()));
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        EXPECT_EQ(outline(configuration), reversed(outlineOf(drawnTriangles(dual[255 - configuration]))))
            << configuration;
    }
}

TEST_P(LocalSurface, TrianglesHaveThreeCornersAndAnArea) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        for (HalfTriangle const& triangle : drawnTriangles(_objects[configuration])) {
            EXPECT_EQ((std::set<HalfPoint>{triangle[0], triangle[1], triangle[2]}).size(), 3U) << configuration;
            EXPECT_NE(normalOf(triangle), HalfPoint{}) << configuration;
        }
    }
}

// Returns whether a point is the midpoint between a corner and another one.
bool isMidpointFrom(unsigned int corner, HalfPoint const& point) {
    Triple const place = cellCorner(corner);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (point.at(axis) != 1 && point.at(axis) != 2 * place.at(axis)) {
            return false;
        }
    }
    return true;
}

TEST_P(LocalSurface, VerticesAreTheMidpointsBetweenUnlikeCorners) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        SCOPED_TRACE(configuration);
        for (HalfTriangle const& triangle : drawnTriangles(_objects[configuration])) {
            for (HalfPoint const& point : triangle) {
                // The corners of all links with this midpoint: on a face or through the centre there are several.
                std::set<unsigned int> values;
                for (unsigned int corner = 0; corner < 8; ++corner) {
                    if (isMidpointFrom(corner, point)) {
                        values.insert(configuration >> corner & 1U);
                    }
                }
                EXPECT_EQ(values.size(), 2U);
            }
        }
    }
}

TEST_P(LocalSurface, NormalsAreNumbersOfUnitLength) {
    EXPECT_EQ(configurationsWithABadNormal(_objects.list()), std::vector<unsigned int>());
}

INSTANTIATE_TEST_SUITE_P(Systems, LocalSurface, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

// N6 and N26 differ on a face with two voxels of each value on its diagonals, and nowhere else.
class LocalSurfaceOfEdges : public LocalSurface {};

TEST_P(LocalSurfaceOfEdges, ComplementTurnsTheOutlineAroundUnlessADiagonalSplitsAFace) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        bool isSplit = false;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            for (bool const isHigh : {false, true}) {
                unsigned int const pattern = facePattern(configuration, axis, isHigh);
                isSplit = isSplit || pattern == 0b0110 || pattern == 0b1001;
            }
        }
        EXPECT_EQ(outline(configuration) == reversed(outline(255 - configuration)), !isSplit) << configuration;
    }
}

INSTANTIATE_TEST_SUITE_P(Systems, LocalSurfaceOfEdges, testing::Values(Neighborhood::N6, Neighborhood::N26),
                         nameOfSystem);

TEST(LocalSurfaceOfTetrahedra, IsMadeOfTrianglesAndQuadrilaterals) {
    constexpr int kPolygon = 9; // GL_POLYGON
    SystemList const objects(Neighborhood::N14II);
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        SCOPED_TRACE(configuration);
        for (GLPolygon const* polygon : objects[configuration]) {
            EXPECT_EQ(polygon->type(), kPolygon);
            EXPECT_TRUE(polygon->size() == 3 || polygon->size() == 4);
        }
    }
}

} // namespace
