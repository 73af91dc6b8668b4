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

using tamo::test::latticePolygon;
using tamo::test::Plain3;
using tamo::test::PlainPolygon;
using tamo::test::sameFloats;
using tamo::test::samePolygon;

Plain3 plain(GLVec3f const& v) { return {v.x, v.y, v.z}; }

GLVec3f sortAbout(GLPolygon& polygon, std::array<float, 3> reference) {
    return polygon.sortCCW(GLAccess3f(reference.data()));
}

bool isNaN(GLVec3f const& v) { return std::isnan(v.x) && std::isnan(v.y) && std::isnan(v.z); }

GLPolygon triangle() {
    GLPolygon polygon(3);
    polygon.vertex(1) = GLVec3f{0, 1, 0};
    polygon.vertex(2) = GLVec3f{1, 0, 0};
    return polygon;
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
    PlainPolygon expected = latticePolygon(5);
    expected.closed = true;
    GLPolygon polygon = tamo::test::libraryOf(expected);
    EXPECT_TRUE(isNaN(sortAbout(polygon, {0, 0, 1})));
    expected.ccw = true;
    EXPECT_TRUE(samePolygon(polygon, expected));
}

TEST(GLPolygonOrder, FewerThanThreeVerticesGiveNaN) {
    for (unsigned int n = 0; n < 3; ++n) {
        PlainPolygon expected = latticePolygon(n);
        GLPolygon polygon = tamo::test::libraryOf(expected);
        EXPECT_TRUE(isNaN(sortAbout(polygon, {0, 0, 1})));
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

// Coordinates that are NaN or infinite make distances and turns NaN, here in up to three places.
TEST(GLPolygonOrder, NeighbourWhoseDistanceIsNaNIsSkipped) {
    std::mt19937 random(13);
    std::array<float, 3> const odd = {NAN, INFINITY, -INFINITY};
    for (unsigned int round = 0; round < 20000; ++round) {
        PlainPolygon expected = tamo::test::randomPolygon(random, 3 + round % 7, (round & 32U) != 0);
        for (unsigned int places = 0; places < round % 4; ++places) {
            Plain3& position = expected.vertices.at(tamo::test::below(random, expected.size())).position;
            float* const coordinates[] = {&position.x, &position.y, &position.z};
            *coordinates[tamo::test::below(random, 3)] = odd.at(tamo::test::below(random, 3));
        }
        Plain3 const r = tamo::test::randomPolygon(random, 1, (round & 64U) != 0).position(0);
        GLPolygon polygon = tamo::test::libraryOf(expected);
        GLVec3f const direction = sortAbout(polygon, {r.x, r.y, r.z});
        ASSERT_TRUE(sameFloats(plain(direction), tamo::test::sortPlain(expected, r))) << "round " << round;
        ASSERT_TRUE(samePolygon(polygon, expected)) << "round " << round;
    }
}

TEST(GLPolygonOrder, DistanceThatIsNaNAddsNothingToTheDirection) {
    GLPolygon polygon(4);
    polygon.vertex(1) = GLVec3f{1, 0, 0};
    polygon.vertex(2) = GLVec3f{1, 1, 0};
    polygon.vertex(3) = GLVec3f{NAN, 1, 0};
    EXPECT_TRUE(sameFloats(plain(sortAbout(polygon, {0, 0, 1})), {0, 0, 1}));
    EXPECT_EQ(polygon.vertex(1), (GLVec3f{1, 0, 0}));
    EXPECT_EQ(polygon.vertex(2), (GLVec3f{1, 1, 0}));
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

// The normal of a polygon that may only be read serves as a reference as well.
TEST(GLPolygonOrder, ReferencesMayBeReadOnly) {
    GLPolygon polygon(3);
    polygon.vertex(1) = GLVec3f(0, 1, 0);
    polygon.vertex(2) = GLVec3f(1, 0, 0);
    polygon.setNormals(GLVec3f(0, 0, 1));
    GLPolygon const model(polygon);
    EXPECT_EQ(polygon.sortCCW(model.normal(0)), GLVec3f(0, 0, -1));
    EXPECT_EQ(GLVec3f(polygon.vertex(1)), GLVec3f(1, 0, 0));
}

} // namespace
