// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

#include "support/oracle/PlainPolygon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace {

using tamo::test::Plain3;
using tamo::test::PlainPolygon;
using tamo::test::sameFloats;
using tamo::test::samePolygon;

Plain3 plain(GLVec3f const& v) { return {v.x, v.y, v.z}; }

GLVec3f sortAbout(GLPolygon& polygon, std::array<float, 3> reference) {
    return polygon.sortCCW(GLAccess3f(reference.data()));
}

bool isNonNumber(GLVec3f const& v) { return std::isnan(v.x) && std::isnan(v.y) && std::isnan(v.z); }

GLPolygon triangle() {
    GLPolygon polygon(3);
    polygon.vertex(1) = GLVec3f{0, 1, 0};
    polygon.vertex(2) = GLVec3f{1, 0, 0};
    return polygon;
}

PlainPolygon lattice(unsigned int size) {
    std::mt19937 random(size);
    return tamo::test::randomPolygon(random, size, /*onLattice=*/true);
}

TEST(GLPolygonOrder, SwapExchangesWholeVertices) {
    for (unsigned int i = 0; i < 4; ++i) {
        for (unsigned int j = 0; j < 4; ++j) {
            PlainPolygon expected = lattice(4);
            GLPolygon polygon = tamo::test::libraryOf(expected);
            std::swap(expected.vertices[i], expected.vertices[j]);
            EXPECT_TRUE(polygon.swapV(i, j));
            EXPECT_TRUE(samePolygon(polygon, expected));
        }
    }
}

TEST(GLPolygonOrder, SwapAndEraseRefuseIndicesOutOfRange) {
    PlainPolygon const expected = lattice(4);
    GLPolygon polygon = tamo::test::libraryOf(expected);
    EXPECT_FALSE(polygon.swapV(0, 4));
    EXPECT_FALSE(polygon.swapV(4, 0));
    EXPECT_FALSE(polygon.swapV(4, 4));
    EXPECT_FALSE(polygon.eraseV(4));
    EXPECT_FALSE(polygon.eraseV(~0U));
    EXPECT_TRUE(samePolygon(polygon, expected));
    GLPolygon none(0);
    EXPECT_FALSE(none.swapV(0, 0));
    EXPECT_FALSE(none.eraseV(0));
}

TEST(GLPolygonOrder, EraseMovesLaterVerticesForward) {
    for (unsigned int i = 0; i < 5; ++i) {
        PlainPolygon expected = lattice(5);
        GLPolygon polygon = tamo::test::libraryOf(expected);
        expected.vertices.erase(expected.vertices.begin() + static_cast<int>(i));
        EXPECT_TRUE(polygon.eraseV(i));
        EXPECT_TRUE(samePolygon(polygon, expected));
    }
}

TEST(GLPolygonOrder, EraseGoesDownToNoVertex) {
    PlainPolygon expected = lattice(3);
    GLPolygon polygon = tamo::test::libraryOf(expected);
    while (!expected.vertices.empty()) {
        EXPECT_TRUE(polygon.eraseV(expected.size() - 1));
        expected.vertices.pop_back();
        EXPECT_TRUE(samePolygon(polygon, expected));
    }
    EXPECT_FALSE(polygon.eraseV(0));
}

TEST(GLPolygonOrder, AreaOfTheUnitSquareIsOne) {
    GLPolygon square(4);
    square.vertex(1) = GLVec3f{1, 0, 0};
    square.vertex(2) = GLVec3f{1, 1, 0};
    square.vertex(3) = GLVec3f{0, 1, 0};
    EXPECT_EQ(square.area(), 1.0F);
    EXPECT_EQ(triangle().area(), 0.5F);
}

TEST(GLPolygonOrder, AreaBelowThreeVerticesIsZero) {
    for (unsigned int n = 0; n < 3; ++n) {
        EXPECT_EQ(tamo::test::libraryOf(lattice(n)).area(), 0.0F);
    }
}

TEST(GLPolygonOrder, AreaSumsUnsignedTrianglesFromVertexZero) {
    std::mt19937 random(3);
    for (unsigned int round = 0; round < 2000; ++round) {
        PlainPolygon const polygon = tamo::test::randomPolygon(random, round % 11, (round & 16U) != 0);
        float expected = 0;
        for (unsigned int k = 1; k + 1 < polygon.size(); ++k) {
            Plain3 const next = tamo::test::minus(polygon.position(k + 1), polygon.position(0));
            Plain3 const here = tamo::test::minus(polygon.position(k), polygon.position(0));
            expected += 0.5F * tamo::test::lengthOf(tamo::test::crossOf(next, here));
        }
        EXPECT_EQ(tamo::test::libraryOf(polygon).area(), expected);
    }
}

TEST(GLPolygonOrder, TriangleIsTurnedTowardsTheReference) {
    GLPolygon polygon = triangle();
    EXPECT_TRUE(sameFloats(plain(sortAbout(polygon, {0, 0, 1})), {0, 0, -1}));
    EXPECT_EQ(polygon.vertex(1), (GLVec3f{1, 0, 0}));
    EXPECT_EQ(polygon.vertex(2), (GLVec3f{0, 1, 0}));

    GLPolygon kept = triangle();
    EXPECT_TRUE(sameFloats(plain(sortAbout(kept, {0, 0, -1})), {0, 0, -1}));
    EXPECT_EQ(kept.vertex(1), (GLVec3f{0, 1, 0}));

    GLPolygon closed = triangle();
    closed.setClosed(true);
    sortAbout(closed, {0, 0, 1});
    EXPECT_EQ(closed.vertex(1), (GLVec3f{1, 0, 0}));
}

TEST(GLPolygonOrder, TriangleDirectionIsNotNormalised) {
    GLPolygon polygon(3);
    polygon.vertex(1) = GLVec3f{3, 0, 0};
    polygon.vertex(2) = GLVec3f{0, 4, 0};
    EXPECT_TRUE(sameFloats(plain(sortAbout(polygon, {0, 0, 1})), {0, 0, 12}));
}

TEST(GLPolygonOrder, ClosedPolygonKeepsItsOrder) {
    PlainPolygon expected = lattice(5);
    expected.closed = true;
    GLPolygon polygon = tamo::test::libraryOf(expected);
    EXPECT_TRUE(isNonNumber(sortAbout(polygon, {0, 0, 1})));
    expected.ccw = true;
    EXPECT_TRUE(samePolygon(polygon, expected));
}

TEST(GLPolygonOrder, FewerThanThreeVerticesGiveNonNumbers) {
    for (unsigned int n = 0; n < 3; ++n) {
        PlainPolygon expected = lattice(n);
        GLPolygon polygon = tamo::test::libraryOf(expected);
        EXPECT_TRUE(isNonNumber(sortAbout(polygon, {0, 0, 1})));
        expected.ccw = true;
        EXPECT_TRUE(samePolygon(polygon, expected));
    }
}

TEST(GLPolygonOrder, GreedySearchSwapsOnlyClockwiseNeighboursWithinReach) {
    std::mt19937 random(11);
    for (unsigned int round = 0; round < 30000; ++round) {
        PlainPolygon expected = tamo::test::randomPolygon(random, round % 10, (round & 32U) != 0);
        expected.closed = round % 7 == 0;
        PlainPolygon const directions = tamo::test::randomPolygon(random, 1, (round & 64U) != 0);
        Plain3 const r = directions.position(0);
        GLPolygon polygon = tamo::test::libraryOf(expected);
        GLVec3f const direction = sortAbout(polygon, {r.x, r.y, r.z});
        ASSERT_TRUE(sameFloats(plain(direction), tamo::test::sortPlain(expected, r))) << "round " << round;
        ASSERT_TRUE(samePolygon(polygon, expected)) << "round " << round;
        ASSERT_TRUE(polygon.isCCW());
    }
}

TEST(GLPolygonOrder, NeighbourAtTheSameDistanceIsExamined) {
    // Vertices 2 and 3 lie equally far from vertex 1; the turn to vertex 3 is clockwise.
    GLPolygon polygon(4);
    polygon.vertex(1) = GLVec3f{1, 0, 0};
    polygon.vertex(2) = GLVec3f{1, 1, 0};
    polygon.vertex(3) = GLVec3f{1, -1, 0};
    EXPECT_TRUE(sameFloats(plain(sortAbout(polygon, {0, 0, 1})), {0, 0, 1}));
    EXPECT_EQ(polygon.vertex(1), (GLVec3f{1, -1, 0}));
    EXPECT_EQ(polygon.vertex(2), (GLVec3f{1, 0, 0}));
    EXPECT_EQ(polygon.vertex(3), (GLVec3f{1, 1, 0}));
}

TEST(GLPolygonOrder, EveryOrderOfASquareIsTurnedCounterClockwise) {
    std::array<GLVec3f, 4> const corners = {GLVec3f{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    std::array<unsigned int, 4> order = {0, 1, 2, 3};
    do {
        GLPolygon polygon(4);
        for (unsigned int i = 0; i < 4; ++i) {
            polygon.vertex(i) = corners[order[i]];
        }
        sortAbout(polygon, {0, 0, 1});
        polygon.setNormals();
        for (unsigned int i = 0; i < 4; ++i) {
            EXPECT_EQ(polygon.normal(i), (GLVec3f{0, 0, 1})) << order[0] << order[1] << order[2] << order[3];
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

} // namespace
