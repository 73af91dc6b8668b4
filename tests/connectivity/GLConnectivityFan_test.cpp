// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/ConnectivityPrivates.h"
#include "support/StreamCapture.h"
#include "support/oracle/ConnectivityOracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using tamo::test::fill;
using tamo::test::makeTriangleFan;
using tamo::test::Plain3;
using tamo::test::PlainObject;
using tamo::test::PlainPolygon;

Plain3 const kCentre = {0.5F, 0.5F, 0.5F};

// Makes a polygon whose vertices all have the normal (0, 0, 1).
PlainPolygon polygonOf(std::vector<Plain3> const& positions) {
    PlainPolygon polygon;
    for (Plain3 const& position : positions) {
        polygon.vertices.push_back({{0, 0, 1}, position});
    }
    return polygon;
}

// Returns rim point k of `count`, counter-clockwise around the centre.
Plain3 rim(unsigned int k, unsigned int count) {
    double const angle = 2.0 * 3.14159265358979 * (k % count) / count;
    return {0.5F + static_cast<float>(0.5 * std::cos(angle)), 0.5F + static_cast<float>(0.5 * std::sin(angle)), 0.25F};
}

PlainObject threeTriangles() {
    return {polygonOf({kCentre, rim(0, 3), rim(1, 3)}), polygonOf({rim(1, 3), rim(2, 3), kCentre}),
            polygonOf({rim(0, 3), kCentre, rim(2, 3)})};
}

void expectRefused(PlainObject const& polygons) {
    GLObject object;
    fill(object, polygons);
    EXPECT_EQ(makeTriangleFan(object), 0U);
    EXPECT_TRUE(sameObject(object, polygons));
}

TEST(MakeTriangleFan, ThreeTrianglesBecomeOneClosedFanOfFiveVertices) {
    GLObject object;
    fill(object, threeTriangles());
    EXPECT_EQ(makeTriangleFan(object), 4U);
    ASSERT_EQ(object.size(), 1U);
    GLPolygon const& fan = *object[0];
    ASSERT_EQ(fan.size(), 5U);
    EXPECT_TRUE(fan.isFan() && fan.isClosed() && !fan.isStrip() && !fan.isCCW());
    EXPECT_EQ(fan.color(), (GLVec3f{0, 0, 0}));
    EXPECT_EQ(fan.vertex(0), (GLVec3f{0.5F, 0.5F, 0.5F}));
    EXPECT_EQ(fan.vertex(1), fan.vertex(4));
    for (unsigned int k = 0; k < 3; ++k) {
        Plain3 const expected = rim(k, 3);
        EXPECT_EQ(fan.vertex(k + 1), (GLVec3f{expected.x, expected.y, expected.z}));
    }
    PlainPolygon plain = tamo::test::plainOf(fan);
    tamo::test::computePlainNormals(plain);
    EXPECT_TRUE(samePolygon(fan, plain));
}

TEST(MakeTriangleFan, QuadrilateralsGiveTwoRimVertices) {
    GLObject object;
    fill(object,
         {polygonOf({kCentre, rim(0, 6), rim(1, 6), rim(2, 6)}), polygonOf({rim(3, 6), rim(4, 6), kCentre, rim(2, 6)}),
          polygonOf({rim(5, 6), rim(0, 6), kCentre, rim(4, 6)})});
    EXPECT_EQ(makeTriangleFan(object), 4U);
    ASSERT_EQ(object.size(), 1U);
    ASSERT_EQ(object[0]->size(), 8U);
    for (unsigned int k = 0; k < 7; ++k) {
        Plain3 const expected = rim(k, 6);
        EXPECT_EQ(object[0]->vertex(k + 1), (GLVec3f{expected.x, expected.y, expected.z})) << k;
    }
}

TEST(MakeTriangleFan, FewerThanThreePolygonsAreLeftAlone) {
    PlainObject polygons = threeTriangles();
    while (!polygons.empty()) {
        polygons.pop_back();
        expectRefused(polygons);
    }
}

TEST(MakeTriangleFan, AFanAmongThePolygonsIsRefused) {
    for (std::size_t i = 0; i < 3; ++i) {
        PlainObject polygons = threeTriangles();
        polygons[i].fan = true;
        expectRefused(polygons);
    }
}

TEST(MakeTriangleFan, CentreVerticesHaveToBeAsManyAsPolygons) {
    for (std::size_t i = 0; i < 3; ++i) {
        PlainObject none = threeTriangles();
        for (tamo::test::PlainVertex& vertex : none[i].vertices) {
            vertex.position.z += 1e-6F;
        }
        expectRefused(none);
        PlainObject twice = threeTriangles();
        twice[i].vertices.push_back({{0, 0, 1}, kCentre});
        expectRefused(twice);
    }
}

TEST(MakeTriangleFan, FifthVertexLeavesAnEmptySlotBehindTheClosingOne) {
    PlainObject polygons = threeTriangles();
    polygons[1] = polygonOf({rim(1, 3), {0, 0, 0}, {0, 1, 0}, rim(2, 3), kCentre});
    GLObject object;
    fill(object, polygons);
    unsigned int unchained = 0;
    tamo::test::StreamCapture const errors(std::cerr);
    unsigned int const saved = tamo::test::fanPlain(polygons, unchained);
    EXPECT_EQ(makeTriangleFan(object), saved);
    EXPECT_EQ(saved, 5U);
    EXPECT_TRUE(sameObject(object, polygons));
    EXPECT_EQ(errors.text().size(), unchained * std::string("ERROR (triangle fan sort)").size());
}

TEST(MakeTriangleFan, RimThatDoesNotChainIsReportedAndKept) {
    PlainObject polygons = threeTriangles();
    polygons[2] = polygonOf({{0, 0, 0}, kCentre, {0, 0, 1}});
    GLObject object;
    fill(object, polygons);
    tamo::test::StreamCapture const errors(std::cerr);
    EXPECT_EQ(makeTriangleFan(object), 4U);
    EXPECT_EQ(errors.text(), "ERROR (triangle fan sort)");
    EXPECT_EQ(object.size(), 1U);
    unsigned int unchained = 0;
    tamo::test::fanPlain(polygons, unchained);
    EXPECT_EQ(unchained, 1U);
    EXPECT_TRUE(sameObject(object, polygons));
}

// Cuts a rim of `count` points into triangles and quadrilaterals around the centre, turns each and mixes them.
PlainObject shuffledRing(std::mt19937& random, unsigned int count) {
    PlainObject polygons;
    for (unsigned int k = 0; k < count;) {
        bool const isQuad = k + 2 <= count && random() % 2 == 0;
        PlainPolygon polygon = polygonOf({kCentre, rim(k, count), rim(k + 1, count)});
        if (isQuad) {
            polygon.vertices.push_back({{1, 0, 0}, rim(k + 2, count)});
        }
        polygon.vertices[0].normal = {static_cast<float>(k), 1, 2};
        auto const turn = static_cast<std::ptrdiff_t>(random() % polygon.size());
        std::rotate(polygon.vertices.begin(), polygon.vertices.begin() + turn, polygon.vertices.end());
        polygons.push_back(polygon);
        k += isQuad ? 2 : 1;
    }
    for (std::size_t i = polygons.size(); i > 1; --i) {
        std::swap(polygons[i - 1], polygons[random() % i]);
    }
    return polygons;
}

TEST(MakeTriangleFan, AnyOrderOfTheRingIsChained) {
    std::mt19937 random(8);
    for (unsigned int round = 0; round < 2000; ++round) {
        PlainObject polygons = shuffledRing(random, 6 + round % 5);
        GLObject object;
        fill(object, polygons);
        unsigned int unchained = 0;
        tamo::test::StreamCapture const errors(std::cerr);
        unsigned int const saved = tamo::test::fanPlain(polygons, unchained);
        EXPECT_EQ(makeTriangleFan(object), saved);
        ASSERT_TRUE(sameObject(object, polygons)) << round;
        EXPECT_EQ(unchained, 0U);
        EXPECT_EQ(errors.text(), "");
        GLPolygon const& fan = *object[0];
        for (unsigned int k = 1; k + 1 < fan.size(); ++k) {
            GLVec3f const a = fan.vertex(k) - fan.vertex(0);
            GLVec3f const b = fan.vertex(k + 1) - fan.vertex(0);
            EXPECT_GT(a.cross(b).z, 0.0F) << "the rim runs once around, counter-clockwise";
        }
    }
}

TEST(MakeTriangleFan, TornRingsAreHandledAsThePlainRuleSays) {
    std::mt19937 random(9);
    unsigned int torn = 0;
    for (unsigned int round = 0; round < 2000; ++round) {
        PlainObject polygons = shuffledRing(random, 6 + round % 5);
        for (PlainPolygon& polygon : polygons) {
            if (random() % 3 == 0) {
                std::reverse(polygon.vertices.begin(), polygon.vertices.end());
            }
        }
        GLObject object;
        fill(object, polygons);
        unsigned int unchained = 0;
        tamo::test::StreamCapture const errors(std::cerr);
        tamo::test::fanPlain(polygons, unchained);
        makeTriangleFan(object);
        ASSERT_TRUE(sameObject(object, polygons)) << round;
        EXPECT_EQ(errors.text(), unchained == 1 ? "ERROR (triangle fan sort)" : "");
        torn += unchained;
    }
    EXPECT_GT(torn, 100U);
}

} // namespace
