// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/ConnectivityPrivates.h"
#include "support/oracle/ConnectivityOracle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace {

using tamo::test::combinePolygons;
using tamo::test::fill;
using tamo::test::PlainObject;
using tamo::test::PlainPolygon;
using tamo::test::reducePolygons;
using tamo::test::samePolygon;

// Makes a polygon with the normals that belong to it.
GLPolygon polygonOf(std::vector<GLVec3f> const& positions) {
    GLPolygon polygon(static_cast<unsigned int>(positions.size()));
    for (unsigned int i = 0; i < polygon.size(); ++i) {
        polygon.vertex(i) = positions[i];
    }
    polygon.setNormals();
    return polygon;
}

GLPolygon lowerTriangle() { return polygonOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}); }
GLPolygon upperTriangle() { return polygonOf({{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}); }

std::vector<GLVec3f> positionsOf(GLPolygon const& polygon) {
    std::vector<GLVec3f> positions;
    for (unsigned int i = 0; i < polygon.size(); ++i) {
        positions.emplace_back(polygon.vertex(i));
    }
    return positions;
}

TEST(CombinePolygons, TwoTrianglesOfASquareBecomeAGreenQuadrilateral) {
    GLPolygon p = lowerTriangle();
    GLPolygon q = upperTriangle();
    PlainPolygon const before = tamo::test::plainOf(p);
    PlainPolygon const other = tamo::test::plainOf(q);
    auto const joined = combinePolygons(p, q, 3, /*sameNormal=*/true);
    ASSERT_NE(joined, nullptr);
    EXPECT_EQ(positionsOf(*joined), (std::vector<GLVec3f>{{1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 0}}));
    for (unsigned int i = 0; i < 4; ++i) {
        EXPECT_EQ(joined->normal(i), (GLVec3f{0, 0, 1}));
    }
    EXPECT_EQ(joined->color(), (GLVec3f{0, 1, 0}));
    EXPECT_TRUE(joined->isCCW());
    EXPECT_EQ(joined->type(), 9);
    EXPECT_FALSE(joined->isClosed());
    EXPECT_TRUE(samePolygon(p, before));
    EXPECT_TRUE(samePolygon(q, other));
}

TEST(CombinePolygons, FansAreNeverJoined) {
    for (unsigned int fan = 1; fan < 4; ++fan) {
        GLPolygon p = lowerTriangle();
        GLPolygon q = upperTriangle();
        p.setFan(fan % 2 == 1);
        q.setFan(fan / 2 == 1);
        EXPECT_EQ(combinePolygons(p, q, 3, true), nullptr);
        EXPECT_EQ(combinePolygons(p, q, 0, false), nullptr);
    }
}

TEST(CombinePolygons, BothVertexCountsHaveToBeTheOneAskedFor) {
    GLPolygon triangle = upperTriangle();
    GLPolygon square = polygonOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 1, 0}});
    EXPECT_EQ(combinePolygons(triangle, square, 3, false), nullptr);
    EXPECT_EQ(combinePolygons(square, triangle, 3, false), nullptr);
    GLPolygon other = lowerTriangle();
    EXPECT_EQ(combinePolygons(triangle, other, 5, false), nullptr);
    auto const joined = combinePolygons(square, triangle, 0, false);
    ASSERT_NE(joined, nullptr);
    EXPECT_EQ(joined->size(), 5U);
}

TEST(CombinePolygons, OnlyASharedEdgeJoins) {
    GLPolygon p = lowerTriangle();
    GLPolygon oneShared = polygonOf({{1, 0, 0}, {2, 0, 0}, {2, 1, 0}});
    GLPolygon noneShared = polygonOf({{5, 0, 0}, {6, 0, 0}, {5, 1, 0}});
    GLPolygon allShared = lowerTriangle();
    GLPolygon nearly = polygonOf({{1, 0, 0}, {1, 1, 0}, {0, std::nextafterf(1, 2), 0}});
    for (GLPolygon* q : {&oneShared, &noneShared, &allShared, &nearly}) {
        EXPECT_EQ(combinePolygons(p, *q, 3, /*sameNormal=*/false), nullptr);
    }
}

TEST(CombinePolygons, PositionThatOneOfThemHoldsTwiceCountsTwice) {
    GLVec3f const a(0, 0, 0);
    GLPolygon single = polygonOf({a, {1, 0, 0}, {0, 1, 0}});
    GLPolygon twice = polygonOf({{-1, 0, 0}, a, a});
    for (auto const& [p, q] : {std::pair(&single, &twice), std::pair(&twice, &single)}) {
        auto const joined = combinePolygons(*p, *q, 3, /*sameNormal=*/false);
        ASSERT_NE(joined, nullptr);
        EXPECT_TRUE(samePolygon(*joined,
                                *tamo::test::combinePlain(tamo::test::plainOf(*p), tamo::test::plainOf(*q), 3, false)));
        // All vertices of the first, and those of the second that the first has not.
        EXPECT_EQ(joined->size(), p == &single ? 4U : 5U);
    }
    EXPECT_EQ(combinePolygons(twice, twice, 3, /*sameNormal=*/false), nullptr);
}

TEST(CombinePolygons, NormalsHaveToAgreeExactlyWhenAsked) {
    GLPolygon p = lowerTriangle();
    GLPolygon q = upperTriangle();
    for (float const z : {std::nextafterf(1, 0), std::nextafterf(1, 2), -1.0F, 0.0F, NAN}) {
        q.setNormals(GLVec3f{0, 0, z});
        EXPECT_EQ(combinePolygons(p, q, 3, /*sameNormal=*/true), nullptr) << z;
        EXPECT_NE(combinePolygons(p, q, 3, /*sameNormal=*/false), nullptr) << z;
    }
    q.setNormals(GLVec3f{0, 0, 1});
    q.normal(1) = GLVec3f{1, 0, 0};
    EXPECT_NE(combinePolygons(p, q, 3, /*sameNormal=*/true), nullptr) << "only the first normals count";
}

TEST(CombinePolygons, ReferenceIsTheFirstNormalOfTheFirst) {
    GLPolygon p = lowerTriangle();
    GLPolygon q = upperTriangle();
    p.setNormals(GLVec3f{0, 0, -1});
    auto const joined = combinePolygons(p, q, 3, /*sameNormal=*/false);
    ASSERT_NE(joined, nullptr);
    EXPECT_EQ(joined->normal(0), (GLVec3f{0, 0, -1}));
}

// Makes lattice polygons of different positions, so that pairs often share two of them.
PlainObject randomObject(std::mt19937& random, unsigned int polygons, unsigned int smallest, unsigned int largest) {
    PlainObject object;
    while (object.size() < polygons) {
        PlainPolygon polygon = tamo::test::randomPolygon(
            random, smallest + tamo::test::below(random, largest - smallest + 1), /*onLattice=*/true);
        for (tamo::test::PlainVertex& vertex : polygon.vertices) {
            vertex.position.z = 0.5F;
        }
        bool isDistinct = true;
        for (unsigned int i = 0; i < polygon.size(); ++i) {
            for (unsigned int j = 0; j < i; ++j) {
                isDistinct = isDistinct && !tamo::test::isEqual(polygon.position(i), polygon.position(j));
            }
        }
        if (isDistinct) {
            polygon.fan = random() % 16 == 0;
            tamo::test::computePlainNormals(polygon);
            object.push_back(polygon);
        }
    }
    return object;
}

TEST(CombinePolygons, AgreesWithThePlainRuleForAnySizes) {
    std::mt19937 random(4);
    unsigned int joins = 0;
    for (unsigned int round = 0; round < 20000; ++round) {
        PlainObject const pair = round % 2 == 0 ? randomObject(random, 2, 3, 3) : randomObject(random, 2, 2, 6);
        GLPolygon p = tamo::test::libraryOf(pair[0]);
        GLPolygon q = tamo::test::libraryOf(pair[1]);
        unsigned int const n = round % 3 == 0 ? 3 : 0;
        bool const sameNormal = round % 5 == 0;
        auto const expected = tamo::test::combinePlain(pair[0], pair[1], n, sameNormal);
        auto const joined = combinePolygons(p, q, n, sameNormal);
        ASSERT_EQ(joined != nullptr, expected.has_value()) << round;
        if (joined) {
            ++joins;
            ASSERT_TRUE(samePolygon(*joined, *expected)) << round;
        }
    }
    EXPECT_GT(joins, 1000U);
}

TEST(ReducePolygons, JoinsInTheFirstTrianglesPlace) {
    GLObject object;
    object.push_back(new GLPolygon(polygonOf({{5, 5, 5}, {6, 5, 5}, {5, 6, 5}})));
    object.push_back(new GLPolygon(lowerTriangle()));
    object.push_back(new GLPolygon(polygonOf({{9, 5, 5}, {9, 6, 5}, {9, 5, 6}})));
    object.push_back(new GLPolygon(upperTriangle()));
    EXPECT_EQ(reducePolygons(object, 3, true), 1U);
    ASSERT_EQ(object.size(), 3U);
    EXPECT_EQ(object[0]->vertex(0), (GLVec3f{5, 5, 5}));
    EXPECT_EQ(object[1]->size(), 4U);
    EXPECT_EQ(object[2]->vertex(0), (GLVec3f{9, 5, 5}));
}

TEST(ReducePolygons, NothingToJoinIsZero) {
    GLObject object;
    EXPECT_EQ(reducePolygons(object, 3, true), 0U);
    object.push_back(new GLPolygon(lowerTriangle()));
    EXPECT_EQ(reducePolygons(object, 3, true), 0U);
    object.push_back(new GLPolygon(lowerTriangle()));
    EXPECT_EQ(reducePolygons(object, 3, true), 0U);
    EXPECT_EQ(object.size(), 2U);
}

TEST(ReducePolygons, AgreesWithThePlainRuleForAnyObject) {
    std::mt19937 random(6);
    unsigned int merges = 0;
    for (unsigned int round = 0; round < 3000; ++round) {
        PlainObject expected = randomObject(random, tamo::test::below(random, 9), 3, round % 2 == 0 ? 3 : 5);
        GLObject object;
        fill(object, expected);
        unsigned int const n = round % 3 == 0 ? 0 : 3;
        unsigned int const count = tamo::test::reducePlain(expected, n, round % 5 == 0);
        EXPECT_EQ(reducePolygons(object, n, round % 5 == 0), count);
        ASSERT_TRUE(sameObject(object, expected)) << round;
        merges += count;
    }
    EXPECT_GT(merges, 1000U);
}

} // namespace
