// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/DrawnSurface.h"
#include "support/oracle/PlainBuilder.h"

#include <tamo/conn/GLConn.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

// The shapes of three corners on a bent path, and paths of three edges between edges alone: no fixed rule says where
// their fans start. A search over all starts shows what is possible, and that the builder takes it.

namespace {

using namespace tamo::test;

using Outline = std::vector<HalfPoint>;
using LinkNormalsOf = std::map<HalfPoint, GLVec3f>;

// The list of one system with the links' normals, and its configurations whose start is a matter of geometry.
class OpenCases {
  public:
    explicit OpenCases(Neighborhood::NHConfig config) {
        GLConn().wrapLocal(config, &_list, /*recomputeNormals=*/false);
        PlainBuilder const plain(config);
        for (unsigned int configuration = 0; configuration < 255; ++configuration) {
            if (plain.build(configuration, false).isOpen) {
                configurations.push_back(configuration);
            }
        }
    }

    [[nodiscard]] GLObject const& operator[](unsigned int configuration) const { return *_list[configuration]; }

    // Lists the configurations that consist of `polygons` polygons and as many vertices on their outline.
    [[nodiscard]] std::vector<unsigned int> having(unsigned int polygons, std::size_t vertices) const;

    std::vector<unsigned int> configurations;

  private:
    GLObjectList _list;
};

LinkNormalsOf linkNormals(GLObject const& object) {
    LinkNormalsOf normals;
    for (GLPolygon const* polygon : object) {
        for (unsigned int i = 0; i < polygon->size(); ++i) {
            normals[halfPoint(*polygon, i)] = polygon->normal(i);
        }
    }
    return normals;
}

// Returns the points around an outline that is one ring.
Outline ringOf(std::vector<HalfEdge> const& edges) {
    std::map<HalfPoint, HalfPoint> next;
    for (HalfEdge const& edge : edges) {
        next[edge[0]] = edge[1];
    }
    Outline ring;
    HalfPoint point = edges.front()[0];
    do {
        ring.push_back(point);
        point = next.at(point);
    } while (point != ring.front() && ring.size() <= edges.size());
    EXPECT_EQ(ring.size(), edges.size());
    return ring;
}

std::vector<unsigned int> OpenCases::having(unsigned int polygons, std::size_t vertices) const {
    std::vector<unsigned int> found;
    for (unsigned int const configuration : configurations) {
        GLObject const& object = (*this)[configuration];
        if (object.size() == polygons && ringOf(outlineOf(drawnTriangles(object))).size() == vertices) {
            found.push_back(configuration);
        }
    }
    return found;
}

std::vector<HalfTriangle> fanFrom(Outline const& ring, std::size_t start) {
    std::vector<HalfTriangle> fan;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i) {
        fan.push_back({ring[start], ring[(start + i) % ring.size()], ring[(start + i + 1) % ring.size()]});
    }
    return fan;
}

// Tells whether every triangle has an area and follows the links of its vertices, and no inner edge lies on a face.
bool isGood(std::vector<HalfTriangle> const& triangles, LinkNormalsOf const& normals) {
    std::set<HalfEdge> edges;
    for (HalfTriangle const& triangle : triangles) {
        for (std::size_t i = 0; i < 3; ++i) {
            edges.insert({triangle[i], triangle[(i + 1) % 3]});
            if (normalOf(triangle) == HalfPoint{} || opposes(triangle, normals.at(triangle[i]))) {
                return false;
            }
        }
    }
    return std::none_of(edges.begin(), edges.end(), [&](HalfEdge const& edge) {
        return isOnCellFace(edge) && edges.count({edge[1], edge[0]}) == 1;
    });
}

std::vector<std::size_t> goodStarts(Outline const& ring, LinkNormalsOf const& normals) {
    std::vector<std::size_t> starts;
    for (std::size_t start = 0; start < ring.size(); ++start) {
        if (isGood(fanFrom(ring, start), normals)) {
            starts.push_back(start);
        }
    }
    return starts;
}

// Returns the triangles, each from its lowest corner on, in an order that depends on nothing else.
std::set<HalfTriangle> asSet(std::vector<HalfTriangle> triangles) {
    for (HalfTriangle& triangle : triangles) {
        std::rotate(triangle.begin(), std::min_element(triangle.begin(), triangle.end()), triangle.end());
    }
    return {triangles.begin(), triangles.end()};
}

class FanStart : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    OpenCases _cases{GetParam()};
};

TEST_P(FanStart, TrianglesFollowTheLinksAndKeepOffTheFaces) {
    EXPECT_FALSE(_cases.configurations.empty());
    for (unsigned int const configuration : _cases.configurations) {
        GLObject const& object = _cases[configuration];
        EXPECT_TRUE(isGood(drawnTriangles(object), linkNormals(object))) << configuration;
    }
}

INSTANTIATE_TEST_SUITE_P(Systems, FanStart, testing::Values(Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I),
                         nameOfSystem);

class FanStartOfEdges : public FanStart {};

TEST_P(FanStartOfEdges, ExactlyOneApexServesTheSevenVerticesOfABentPath) {
    std::vector<unsigned int> const heptagons = _cases.having(/*polygons=*/2, /*vertices=*/7);
    EXPECT_EQ(heptagons.size(), 24U);
    for (unsigned int const configuration : heptagons) {
        SCOPED_TRACE(configuration);
        GLObject const& object = _cases[configuration];
        Outline const ring = ringOf(outlineOf(drawnTriangles(object)));
        std::vector<std::size_t> const starts = goodStarts(ring, linkNormals(object));
        ASSERT_EQ(starts.size(), 1U);
        EXPECT_EQ(asSet(drawnTriangles(object)), asSet(fanFrom(ring, starts[0])));
        EXPECT_EQ(halfPoint(*object[0], 0), ring[starts[0]]);
        EXPECT_EQ(halfPoint(*object[1], 0), ring[starts[0]]);
    }
}

TEST_P(FanStartOfEdges, FourOfSixStartsServeAPathOfThreeEdges) {
    std::vector<unsigned int> const hexagons = _cases.having(/*polygons=*/1, /*vertices=*/6);
    EXPECT_EQ(hexagons.size(), 24U);
    for (unsigned int const configuration : hexagons) {
        SCOPED_TRACE(configuration);
        GLObject const& object = _cases[configuration];
        Outline const ring = ringOf(outlineOf(drawnTriangles(object)));
        std::vector<std::size_t> const starts = goodStarts(ring, linkNormals(object));
        EXPECT_EQ(starts.size(), 4U);
        EXPECT_TRUE(std::any_of(starts.begin(), starts.end(), [&](std::size_t start) {
            return asSet(drawnTriangles(object)) == asSet(fanFrom(ring, start));
        }));
    }
}

TEST_P(FanStartOfEdges, NothingElseIsOpen) { EXPECT_EQ(_cases.configurations.size(), 48U); }

INSTANTIATE_TEST_SUITE_P(Systems, FanStartOfEdges, testing::Values(Neighborhood::N6, Neighborhood::N26), nameOfSystem);

Outline pointsOf(GLPolygon const& polygon) {
    Outline points;
    for (unsigned int i = 0; i < polygon.size(); ++i) {
        points.push_back(halfPoint(polygon, i));
    }
    return points;
}

bool isFaceDiagonal(HalfPoint const& point) { return std::count(point.begin(), point.end(), 1) == 2; }

TEST(FanStartAroundTheCentreLink, EachHalfOpensFromItsOneGoodFaceDiagonal) {
    OpenCases const cases(Neighborhood::N14I);
    unsigned int tubes = 0;
    for (unsigned int const configuration : cases.configurations) {
        SCOPED_TRACE(configuration);
        GLObject const& object = cases[configuration];
        if (object.size() == 1) {
            // The centre link crosses to the other component: one closed fan around the cell's centre.
            EXPECT_TRUE(object[0]->isClosed());
            EXPECT_EQ(halfPoint(*object[0], 0), (HalfPoint{1, 1, 1}));
            continue;
        }
        ++tubes;
        ASSERT_EQ(object.size(), 2U);
        std::set<HalfPoint> points;
        for (GLPolygon const* half : object) {
            Outline const ring = pointsOf(*half);
            points.insert(ring.begin(), ring.end());
            ASSERT_EQ(ring.size(), 7U);
            EXPECT_EQ(goodStarts(ring, linkNormals(object)), std::vector<std::size_t>{0});
            EXPECT_TRUE(isFaceDiagonal(ring[0]));
        }
        // Two of the fourteen are shared.
        EXPECT_EQ(points.size(), 12U);
    }
    EXPECT_EQ(tubes, 12U);
    EXPECT_EQ(cases.configurations.size(), 24U);
}

} // namespace
