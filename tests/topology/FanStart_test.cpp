// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/DrawnSurface.h"
#include "support/oracle/PlainBuilder.h"

#include <tamo/conn/GLConn.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
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

    // Lists the configurations of `polygons` polygons.
    [[nodiscard]] std::vector<unsigned int> having(unsigned int polygons) const;
    // Lists those of them with `vertices` vertices on the polygons' common outline.
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

std::vector<unsigned int> OpenCases::having(unsigned int polygons) const {
    std::vector<unsigned int> found;
    std::copy_if(configurations.begin(), configurations.end(), std::back_inserter(found),
                 [&](unsigned int configuration) { return (*this)[configuration].size() == polygons; });
    return found;
}

std::vector<unsigned int> OpenCases::having(unsigned int polygons, std::size_t vertices) const {
    std::vector<unsigned int> found = having(polygons);
    auto const differs = [&](unsigned int configuration) {
        return ringOf(outlineOf(drawnTriangles((*this)[configuration]))).size() != vertices;
    };
    found.erase(std::remove_if(found.begin(), found.end(), differs), found.end());
    return found;
}

std::vector<HalfTriangle> fanFrom(Outline const& ring, std::size_t start) {
    std::vector<HalfTriangle> fan;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i) {
        fan.push_back({ring[start], ring[(start + i) % ring.size()], ring[(start + i + 1) % ring.size()]});
    }
    return fan;
}

// Returns whether every triangle has an area and follows the links of its vertices, and no inner edge lies on a face.
bool isGood(std::vector<HalfTriangle> const& triangles, LinkNormalsOf const& normals) {
    return !hasInnerEdgeOnCellFace(triangles) &&
           std::all_of(triangles.begin(), triangles.end(), [&](HalfTriangle const& triangle) {
               return normalOf(triangle) != HalfPoint{} &&
                      std::none_of(triangle.begin(), triangle.end(),
                                   [&](HalfPoint const& point) { return opposes(triangle, normals.at(point)); });
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

class FanStartAroundTheCentreLink : public testing::Test {
  protected:
    OpenCases _cases{Neighborhood::N14I};
};

TEST_F(FanStartAroundTheCentreLink, OneClosedFanOpensFromTheCentreWhereTheLinkCrosses) {
    std::vector<unsigned int> const fans = _cases.having(/*polygons=*/1);
    EXPECT_EQ(fans.size(), 12U);
    for (unsigned int const configuration : fans) {
        GLPolygon const& fan = *_cases[configuration][0];
        EXPECT_TRUE(fan.isClosed()) << configuration;
        EXPECT_EQ(halfPoint(fan, 0), (HalfPoint{1, 1, 1})) << configuration;
    }
}

TEST_F(FanStartAroundTheCentreLink, EachOfTwoHalvesOpensFromItsOneGoodFaceDiagonal) {
    std::vector<unsigned int> const tubes = _cases.having(/*polygons=*/2);
    EXPECT_EQ(tubes.size(), 12U);
    for (unsigned int const configuration : tubes) {
        SCOPED_TRACE(configuration);
        GLObject const& object = _cases[configuration];
        std::set<HalfPoint> points;
        for (GLPolygon const* half : object) {
            Outline const ring = pointsOf(*half);
            points.insert(ring.begin(), ring.end());
            EXPECT_EQ(ring.size(), 7U);
            EXPECT_TRUE(isFaceDiagonal(ring[0]));
            EXPECT_EQ(goodStarts(ring, linkNormals(object)), std::vector<std::size_t>{0});
        }
        // Two of the fourteen are shared.
        EXPECT_EQ(points.size(), 12U);
    }
}

TEST_F(FanStartAroundTheCentreLink, NothingElseIsOpen) { EXPECT_EQ(_cases.configurations.size(), 24U); }

} // namespace
