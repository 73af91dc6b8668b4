// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

#include "support/oracle/PlainPolygon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace {

using tamo::test::latticePolygon;
using tamo::test::Plain3;
using tamo::test::PlainPolygon;
using tamo::test::samePolygon;

TEST(GLPolygonEditing, SwapExchangesWholeVertices) {
    for (unsigned int i = 0; i < 4; ++i) {
        for (unsigned int j = 0; j < 4; ++j) {
            PlainPolygon expected = latticePolygon(4);
            GLPolygon polygon = tamo::test::libraryOf(expected);
            std::swap(expected.vertices[i], expected.vertices[j]);
            EXPECT_TRUE(polygon.swapV(i, j));
            EXPECT_TRUE(samePolygon(polygon, expected));
        }
    }
}

TEST(GLPolygonEditing, SwapAndEraseRefuseIndicesOutOfRange) {
    PlainPolygon const expected = latticePolygon(4);
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

TEST(GLPolygonEditing, EraseMovesLaterVerticesForward) {
    for (unsigned int i = 0; i < 5; ++i) {
        PlainPolygon expected = latticePolygon(5);
        GLPolygon polygon = tamo::test::libraryOf(expected);
        expected.vertices.erase(expected.vertices.begin() + static_cast<int>(i));
        EXPECT_TRUE(polygon.eraseV(i));
        EXPECT_TRUE(samePolygon(polygon, expected));
    }
}

TEST(GLPolygonEditing, EraseGoesDownToNoVertex) {
    PlainPolygon expected = latticePolygon(3);
    GLPolygon polygon = tamo::test::libraryOf(expected);
    while (!expected.vertices.empty()) {
        EXPECT_TRUE(polygon.eraseV(expected.size() - 1));
        expected.vertices.pop_back();
        EXPECT_TRUE(samePolygon(polygon, expected));
    }
    EXPECT_FALSE(polygon.eraseV(0));
}

TEST(GLPolygonEditing, AreaOfTheUnitSquareIsOne) {
    GLPolygon square(4);
    square.vertex(1) = GLVec3f{1, 0, 0};
    square.vertex(2) = GLVec3f{1, 1, 0};
    square.vertex(3) = GLVec3f{0, 1, 0};
    EXPECT_EQ(square.area(), 1.0F);
    EXPECT_TRUE(square.eraseV(3));
    EXPECT_EQ(square.area(), 0.5F);
}

TEST(GLPolygonEditing, AreaBelowThreeVerticesIsZero) {
    for (unsigned int n = 0; n < 3; ++n) {
        EXPECT_EQ(tamo::test::libraryOf(latticePolygon(n)).area(), 0.0F);
    }
}

TEST(GLPolygonEditing, AreaSumsUnsignedTrianglesFromVertexZero) {
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

TEST(GLPolygonEditing, AreaOfAClosedFanGoesAllTheWayRoundAndOfAStripDoesNot) {
    std::array<GLVec3f, 6> const rim = {GLVec3f{0.5F, 0.5F, 0}, {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 0}};
    GLPolygon fan(6);
    for (unsigned int i = 0; i < 6; ++i) {
        fan.vertex(i) = rim.at(i);
    }
    fan.setProperties(/*fan=*/true, /*strip=*/false, /*closed=*/true, /*ccw=*/true);
    EXPECT_EQ(fan.area(), 1.0F);
    // A strip of area 2.
    GLPolygon strip(4);
    strip.vertex(1) = GLVec3f{1, 0, 0};
    strip.vertex(2) = GLVec3f{0, 1, 0};
    strip.vertex(3) = GLVec3f{2, 2, 0};
    strip.setStrip(true);
    EXPECT_EQ(strip.area(), 1.5F);
}

} // namespace
