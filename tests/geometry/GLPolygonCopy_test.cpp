// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

#include "support/oracle/PlainPolygon.h"

#include <gtest/gtest.h>

#include <type_traits>

static_assert(std::is_convertible_v<unsigned int, GLPolygon>);

namespace {

using tamo::test::numberedPolygon;
using tamo::test::PlainPolygon;
using tamo::test::samePolygon;

TEST(GLPolygonCopy, CopyTakesVerticesAndFlagsButNotTheColour) {
    for (unsigned int flags = 0; flags < 16; ++flags) {
        SCOPED_TRACE(flags);
        GLPolygon polygon = numberedPolygon(4);
        polygon.setProperties((flags & 1U) != 0, (flags & 2U) != 0, (flags & 4U) != 0, (flags & 8U) != 0);
        PlainPolygon expected = tamo::test::plainOf(polygon);
        expected.color = {0, 0, 0};
        GLPolygon const plainCopy(polygon);
        EXPECT_TRUE(samePolygon(plainCopy, expected));
        EXPECT_TRUE(samePolygon(GLPolygon(polygon, GLCoord3f{0, 0, 0}), expected));
        EXPECT_NE(plainCopy.vData(0), polygon.vData(0));
        GLPolygon assigned(9);
        EXPECT_EQ(&(assigned = polygon), &assigned);
        EXPECT_TRUE(samePolygon(assigned, tamo::test::plainOf(polygon)));
        EXPECT_NE(assigned.vData(0), polygon.vData(0));
    }
}

TEST(GLPolygonCopy, ScalingCopyMultipliesPositionsOnly) {
    GLPolygon const polygon = numberedPolygon(3);
    PlainPolygon expected = tamo::test::plainOf(polygon);
    expected.color = {0, 0, 0};
    for (tamo::test::PlainVertex& vertex : expected.vertices) {
        vertex.position = tamo::test::times(vertex.position, 0.3F);
    }
    EXPECT_TRUE(samePolygon(GLPolygon(polygon, 0.3F), expected));
    EXPECT_EQ(GLPolygon(GLPolygon(0), 2.0F).size(), 0U);
}

TEST(GLPolygonCopy, OffsetCopyMovesPositionsOnly) {
    GLPolygon const polygon = numberedPolygon(3);
    PlainPolygon expected = tamo::test::plainOf(polygon);
    expected.color = {0, 0, 0};
    for (tamo::test::PlainVertex& vertex : expected.vertices) {
        vertex.position = tamo::test::plus(vertex.position, {0.25F, -100, 1e-3F});
    }
    EXPECT_TRUE(samePolygon(GLPolygon(polygon, GLCoord3f{0.25F, -100, 1e-3F}), expected));
    EXPECT_EQ(GLPolygon(GLPolygon(0), GLCoord3f{1, 1, 1}).size(), 0U);
}

TEST(GLPolygonCopy, AssigningAPolygonToItselfKeepsIt) {
    GLPolygon polygon = numberedPolygon(3);
    GLPolygon const& same = polygon;
    PlainPolygon const expected = tamo::test::plainOf(polygon);
    polygon = same;
    EXPECT_TRUE(samePolygon(polygon, expected));
}

// Adding -0.0 keeps the sign of a zero; adding +0.0 makes it positive.
TEST(GLPolygonCopy, OffsetOfZeroIsAddedLikeAnyOther) {
    GLPolygon polygon(2);
    polygon.vertex(0) = GLVec3f{-0.0F, -0.0F, -0.0F};
    for (float const zero : {0.0F, -0.0F}) {
        GLPolygon const copy(polygon, GLCoord3f{zero, zero, zero});
        PlainPolygon expected = tamo::test::plainOf(polygon);
        expected.vertices[0].position = {zero, zero, zero};
        expected.vertices[1].position = {0.0F, 0.0F, 0.0F};
        EXPECT_TRUE(samePolygon(copy, expected)) << zero;
    }
}

TEST(GLPolygonCopy, PlainCopyKeepsTheSignOfZeros) {
    GLPolygon polygon(1);
    polygon.vertex(0) = GLVec3f{-0.0F, 0.0F, -0.0F};
    polygon.normal(0) = GLVec3f{0.0F, -0.0F, 0.0F};
    EXPECT_TRUE(samePolygon(GLPolygon(polygon), tamo::test::plainOf(polygon)));
}

} // namespace
