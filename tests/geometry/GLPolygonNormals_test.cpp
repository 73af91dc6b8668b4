// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

#include "support/oracle/PlainPolygon.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace {

using tamo::test::Plain3;
using tamo::test::PlainPolygon;
using tamo::test::sameFloats;
using tamo::test::samePolygon;

GLPolygon polygonOf(std::vector<GLVec3f> const& positions) {
    GLPolygon polygon(static_cast<unsigned int>(positions.size()));
    for (unsigned int i = 0; i < polygon.size(); ++i) {
        polygon.vertex(i) = positions[i];
    }
    return polygon;
}

void expectNormals(GLPolygon const& polygon, Plain3 const& expected) {
    for (unsigned int i = 0; i < polygon.size(); ++i) {
        EXPECT_TRUE(tamo::test::isEqual(tamo::test::plainOf(polygon).vertices[i].normal, expected)) << "vertex " << i;
    }
}

void setFlags(PlainPolygon& polygon, unsigned int flags) {
    polygon.fan = (flags & 1U) != 0;
    polygon.strip = (flags & 2U) != 0;
    polygon.closed = (flags & 4U) != 0;
    polygon.ccw = (flags & 8U) != 0;
}

// The lattice makes degenerate corners, whose normals are NaN in both.
class ComputedNormals : public testing::TestWithParam<unsigned int> {};

TEST_P(ComputedNormals, FollowTheRuleOfTheDrawingModeToTheLastBit) {
    std::mt19937 random(GetParam());
    for (unsigned int round = 0; round < 1500; ++round) {
        for (bool const onLattice : {false, true}) {
            PlainPolygon expected = tamo::test::randomPolygon(random, round % 13, onLattice);
            setFlags(expected, GetParam());
            GLPolygon polygon = tamo::test::libraryOf(expected);
            EXPECT_EQ(polygon.setNormals(), tamo::test::computePlainNormals(expected));
            ASSERT_TRUE(samePolygon(polygon, expected)) << "round " << round;
        }
    }
}

TEST_P(ComputedNormals, OfATriangleAreItsOwnWhateverTheFlags) {
    GLPolygon polygon = polygonOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    PlainPolygon flags;
    setFlags(flags, GetParam());
    polygon.setProperties(flags.fan, flags.strip, flags.closed, flags.ccw);
    EXPECT_TRUE(polygon.setNormals());
    expectNormals(polygon, {0, 0, 1});
}

INSTANTIATE_TEST_SUITE_P(FlagBitsFanStripClosedCcw, ComputedNormals, testing::Range(0U, 16U));

TEST(GLPolygonNormals, FewerThanThreeVerticesAreRefusedAndKept) {
    for (unsigned int n = 0; n < 3; ++n) {
        GLPolygon polygon(n);
        polygon.setNormals({1, 2, 3});
        EXPECT_FALSE(polygon.setNormals());
        expectNormals(polygon, {1, 2, 3});
    }
}

TEST(GLPolygonNormals, OfASquarePointToWhereItRunsCounterClockwise) {
    GLPolygon polygon = polygonOf({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}});
    EXPECT_TRUE(polygon.setNormals());
    expectNormals(polygon, {0, 0, 1});
    GLPolygon clockwise = polygonOf({{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}});
    EXPECT_TRUE(clockwise.setNormals());
    expectNormals(clockwise, {0, 0, -1});
}

TEST(GLPolygonNormals, GivenDirectionReachesEveryNormalUnchanged) {
    PlainPolygon expected;
    expected.vertices.resize(5);
    for (tamo::test::PlainVertex& vertex : expected.vertices) {
        vertex.normal = {3, -4, 0.1F};
    }
    GLPolygon polygon(5);
    polygon.setNormals({3, -4, 0.1F});
    EXPECT_TRUE(samePolygon(polygon, expected));
    GLPolygon none(0);
    none.setNormals({1, 2, 3});
    EXPECT_EQ(none.size(), 0U);
}

TEST(GLPolygonNormals, CentreOfAnOpenFanLeavesTheLastRimVertexOut) {
    GLPolygon fan = polygonOf({{0, 0, 1}, {1, 0, 0}, {0, 1, 0.5F}, {-1, 0, 0}, {0, -1, -0.5F}});
    fan.setFan(true);
    EXPECT_TRUE(fan.setNormals());
    PlainPolygon const plain = tamo::test::plainOf(fan);
    auto const normal = [&](unsigned int k) { return plain.vertices[k].normal; };
    Plain3 const three = tamo::test::plus(tamo::test::plus(normal(1), normal(2)), normal(3));
    EXPECT_TRUE(sameFloats(normal(0), tamo::test::unit(three)));
    EXPECT_FALSE(sameFloats(normal(0), tamo::test::unit(tamo::test::plus(three, normal(4)))));
}

TEST(GLPolygonNormals, SeamOfAClosedFanHasOneNormal) {
    GLPolygon fan = polygonOf({{0, 0, 1}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, -1, 0}, {1, 0, 0}});
    fan.setFan(true);
    fan.setClosed(true);
    EXPECT_TRUE(fan.setNormals());
    EXPECT_EQ(fan.normal(1), fan.normal(5));
    EXPECT_EQ(fan.normal(0), (GLVec3f{0, 0, 1}));
    for (unsigned int k = 1; k < 6; ++k) {
        GLVec3f const outward = GLVec3f(fan.vertex(k)) + GLVec3f{0, 0, 1};
        EXPECT_NEAR(GLVec3f(fan.normal(k)).dot(outward), std::sqrt(2.0F), 1e-6F) << k;
    }
}

TEST(GLPolygonNormals, StripRuleGoesBeforeTheFanRule) {
    std::mt19937 random(7);
    PlainPolygon both = tamo::test::randomPolygon(random, 6, /*onLattice=*/false);
    PlainPolygon strip = both;
    both.fan = both.strip = strip.strip = true;
    GLPolygon polygon = tamo::test::libraryOf(both);
    EXPECT_TRUE(polygon.setNormals());
    tamo::test::computePlainNormals(strip);
    strip.fan = true;
    EXPECT_EQ(polygon.type(), 6);
    EXPECT_TRUE(samePolygon(polygon, strip));
}

TEST(GLPolygonNormals, OfAFlatStripPointInwardAtVerticesThreeFiveSeven) {
    GLPolygon strip(9);
    for (unsigned int i = 0; i < 9; ++i) {
        strip.vertex(i) = GLVec3f(static_cast<float>(i % 2), 0.5F * static_cast<float>(i), 0);
    }
    strip.setStrip(true);
    EXPECT_TRUE(strip.setNormals());
    for (unsigned int i = 0; i < 9; ++i) {
        bool const isInward = i >= 3 && i % 2 == 1;
        EXPECT_EQ(strip.normal(i), GLVec3f(0, 0, isInward ? -1.0F : 1.0F)) << i;
    }
}

TEST(GLPolygonNormals, CollinearVerticesGiveNaNAndSuccess) {
    GLPolygon polygon = polygonOf({{0, 0, 0}, {1, 1, 1}, {2, 2, 2}});
    EXPECT_TRUE(polygon.setNormals());
    for (unsigned int i = 0; i < 3; ++i) {
        GLVec3f const normal = polygon.normal(i);
        EXPECT_TRUE(std::isnan(normal.x) && std::isnan(normal.y) && std::isnan(normal.z));
    }
}

} // namespace
