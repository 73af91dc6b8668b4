// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/connectivity/GLConnectivity.h>

#include "support/ConnectivityPrivates.h"
#include "support/Digest.h"
#include "support/StreamCapture.h"
#include "support/TextCapture.h"
#include "support/oracle/ConnectivityOracle.h"

#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <type_traits>
#include <vector>

static_assert(std::is_empty_v<GLConnectivity>);

namespace {

using tamo::test::CornerLists;

// Five corners have at most six pairs of foreground and background, six would have nine.
CornerLists const kFiveCorners = {{0, 2, 6, 1, 3}, {0, 6, 4, 1, 7}};

void expectAllConfigurations(CornerLists const& polyhedra, bool reduce) {
    GLObjectList list;
    tamo::test::TextCapture const errors(std::cerr);
    EXPECT_TRUE(GLConnectivity().wrapLocal(tamo::test::tesselationOf(polyhedra), &list, reduce));
    ASSERT_EQ(list.size(), 256U);
    for (unsigned int k = 0; k < 256; ++k) {
        EXPECT_TRUE(sameObject(*list[k], tamo::test::wrapPlain(polyhedra, k, reduce))) << "configuration " << k;
    }
}

TEST(GLConnectivity, CutsEveryTetrahedronOfEveryConfiguration) {
    expectAllConfigurations(tamo::test::sixTetrahedra(), /*reduce=*/false);
}

TEST(GLConnectivity, ReducesEveryConfigurationOfTheTetrahedra) {
    expectAllConfigurations(tamo::test::sixTetrahedra(), /*reduce=*/true);
}

TEST(GLConnectivity, CutsAndReducesAnyTesselation) {
    // Nothing makes polyhedra fill the cell: overlapping and degenerate ones are cut in the same way.
    std::mt19937 random(2);
    for (int round = 0; round < 12; ++round) {
        CornerLists polyhedra(random() % 9);
        for (auto& corners : polyhedra) {
            for (std::size_t size = random() % 6; size > 0; --size) {
                corners.push_back(random() % 8);
            }
        }
        expectAllConfigurations(polyhedra, round % 2 == 1);
    }
}

TEST(GLConnectivity, ReducesObjectsOfTwoPolygons) {
    // Both tetrahedra stand on the triangle 0-1-2: corner 0 alone leaves two triangles with a common edge.
    CornerLists const pair = {{0, 1, 2, 4}, {0, 1, 2, 7}};
    expectAllConfigurations(pair, /*reduce=*/true);
    EXPECT_EQ(tamo::test::wrapPlain(pair, 1, /*reduce=*/false).size(), 2U);
    EXPECT_EQ(tamo::test::wrapPlain(pair, 1, /*reduce=*/true).size(), 1U);
}

TEST(GLConnectivity, CutsPolyhedraOfMoreThanFourCorners) {
    expectAllConfigurations(kFiveCorners, /*reduce=*/false);
    expectAllConfigurations({{0, 1, 2, 4, 7}, {1, 2, 3, 7}}, /*reduce=*/false);
}

TEST(GLConnectivity, FirstAndLastObjectAreEmptyForAnyTesselation) {
    for (CornerLists const& polyhedra : {CornerLists(), CornerLists(3), kFiveCorners, tamo::test::sixTetrahedra()}) {
        for (bool const reduce : {false, true}) {
            GLObjectList list;
            EXPECT_TRUE(GLConnectivity().wrapLocal(tamo::test::tesselationOf(polyhedra), &list, reduce));
            ASSERT_EQ(list.size(), 256U);
            EXPECT_EQ(list[0]->size(), 0U);
            EXPECT_EQ(list[255]->size(), 0U);
        }
    }
}

TEST(GLConnectivity, OneForegroundCornerGivesATriangleInEachTetrahedronThatHasIt) {
    GLObjectList list;
    GLConnectivity().wrapLocal(tamo::test::tesselationOf(tamo::test::sixTetrahedra()), &list, false);
    std::vector<GLPolygon*> const polygons(list[1]->begin(), list[1]->end());
    ASSERT_EQ(polygons.size(), 5U);
    for (unsigned int t = 0; t < 5; ++t) {
        GLPolygon const& polygon = *polygons[t];
        ASSERT_EQ(polygon.size(), 3U);
        EXPECT_EQ(polygon.color(), (GLVec3f{1, 0, 0}));
        EXPECT_EQ(polygon.type(), 9);
        EXPECT_TRUE(polygon.isCCW());
        for (unsigned int place = 1; place < 4; ++place) {
            unsigned int const corner = tamo::test::sixTetrahedra()[t][place];
            GLVec3f const midpoint{static_cast<float>(corner & 1U) / 2, static_cast<float>(corner >> 1U & 1U) / 2,
                                   static_cast<float>(corner >> 2U) / 2};
            bool isFound = false;
            for (unsigned int i = 0; i < 3; ++i) {
                isFound = isFound || polygon.vertex(i) == midpoint;
                // Away from corner 0, which is inside.
                EXPECT_GT(GLVec3f(polygon.normal(i)).dot(GLVec3f(polygon.vertex(0))), 0.0F);
            }
            EXPECT_TRUE(isFound) << "tetrahedron " << t << ", corner " << corner;
        }
    }
}

TEST(GLConnectivity, TooFewCutsMakeNoPolygon) {
    GLObjectList list;
    EXPECT_TRUE(GLConnectivity().wrapLocal(tamo::test::tesselationOf({{0, 1}, {0, 1, 2}, {}}), &list, false));
    for (GLObject const* object : list) {
        EXPECT_EQ(object->size(), 0U);
    }
}

TEST(GLConnectivity, EmptiesTheListFirst) {
    GLObjectList list;
    for (unsigned int i = 0; i < 300; ++i) {
        list.push_back(i % 3 == 0 ? nullptr : new GLObject());
    }
    EXPECT_TRUE(GLConnectivity().wrapLocal(tamo::test::tesselationOf({{0, 1, 2, 4}}), &list, false));
    ASSERT_EQ(list.size(), 256U);
    EXPECT_TRUE(sameObject(*list[1], tamo::test::wrapPlain({{0, 1, 2, 4}}, 1, false)));
}

TEST(GLConnectivity, ReducingKeepsASinglePolygonAsItWasBuilt) {
    CornerLists const one = {{0, 1, 2, 4}};
    GLObjectList list;
    GLConnectivity().wrapLocal(tamo::test::tesselationOf(one), &list, true);
    for (unsigned int k = 0; k < 256; ++k) {
        EXPECT_TRUE(sameObject(*list[k], tamo::test::wrapPlain(one, k, false))) << k;
    }
}

TEST(GLConnectivity, ReducingTheTetrahedraWritesNothing) {
    tamo::test::StreamCapture const errors(std::cerr);
    GLObjectList list;
    GLConnectivity().wrapLocal(tamo::test::tesselationOf(tamo::test::sixTetrahedra()), &list, true);
    EXPECT_EQ(errors.text(), "");
}

TEST(GLConnectivity, ReducedListIsTheSameToTheLastBitEverywhere) {
    GLObjectList list;
    GLConnectivity().wrapLocal(tamo::test::tesselationOf(tamo::test::sixTetrahedra()), &list, true);
    tamo::test::Digest digest;
    digest.add(list);
    EXPECT_EQ(digest.value(), 10259081195338288247U);
}

TEST(GLConnectivity, EpsilonIsTenToTheMinusSixteen) { EXPECT_EQ(tamo::test::epsilonOfConnectivity(), 1e-16F); }

TEST(GLConnectivityDeathTest, NinthCutStopsTheProgram) {
    GLObjectList list;
    GLTesselation const cube = tamo::test::tesselationOf({{0, 1, 2, 3, 4, 5, 6, 7}});
    EXPECT_DEATH(GLConnectivity().wrapLocal(cube, &list, false), "");
}

} // namespace
