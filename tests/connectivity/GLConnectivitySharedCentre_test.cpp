// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/ConnectivityPrivates.h"
#include "support/TextCapture.h"
#include "support/oracle/ConnectivityOracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <numeric>
#include <random>
#include <vector>

// The centre vertices of an object may be shared out unevenly: several in one polygon, none in another.

namespace {

using namespace tamo::test;

Plain3 const kCentre = {0.5F, 0.5F, 0.5F};

// Makes a polygon of the vertices named by letters: C is the centre, every other letter a point of its own.
PlainPolygon spelled(char const* letters) {
    PlainPolygon polygon;
    for (char const* letter = letters; *letter != '\0'; ++letter) {
        auto const x = static_cast<float>(*letter);
        polygon.vertices.push_back({{x, 0, 1}, *letter == 'C' ? kCentre : Plain3{x, 1, 0}});
    }
    return polygon;
}

PlainObject spelledObject(std::vector<char const*> const& polygons) {
    PlainObject object;
    std::transform(polygons.begin(), polygons.end(), std::back_inserter(object), spelled);
    return object;
}

// Makes the fan of an object in both ways, expects them equal, and returns the number of vertices of the fan: 0 where
// the object was refused.
unsigned int fanSize(std::vector<char const*> const& polygons) {
    PlainObject const before = spelledObject(polygons);
    PlainObject expected = before;
    GLObject object;
    fill(object, before);
    TextCapture const errors(std::cerr);
    unsigned int unchained = 0;
    unsigned int const saved = fanPlain(expected, unchained);
    EXPECT_EQ(makeTriangleFan(object), saved);
    EXPECT_TRUE(sameObject(object, expected));
    bool const isFan = object.size() == 1 && object[0]->isFan();
    EXPECT_TRUE(isFan || sameObject(object, before));
    EXPECT_TRUE(isFan || saved == 0);
    return isFan ? object[0]->size() : 0;
}

TEST(SharedCentre, TrianglesMayShareTheirCentreVerticesOut) {
    EXPECT_EQ(fanSize({"CCa", "bcd", "Cef"}), 5U);
    EXPECT_EQ(fanSize({"abd", "CCC", "efg"}), 5U);
}

TEST(SharedCentre, QuadrilateralOfTwoTakesTheSlotsOfOneWithout) {
    EXPECT_EQ(fanSize({"CaCb", "defg", "Chi"}), 7U);
    EXPECT_EQ(fanSize({"CaCb", "defgh", "Cij"}), 7U);
    EXPECT_EQ(fanSize({"CaCb", "defgh", "ijklm", "CCno"}), 10U);
}

TEST(SharedCentre, RefusesWhatWouldWritePastTheFan) {
    // Two slots for each centre vertex of the quadrilateral, but the triangle leaves one: the closing slot has no room.
    EXPECT_EQ(fanSize({"CaCb", "def", "Cgh"}), 0U);
    EXPECT_EQ(fanSize({"CaCC", "defg", "hij"}), 0U);
}

TEST(SharedCentre, SlotsOfLargePolygonsAreRoomForOthers) {
    // A pentagon reserves two slots and fills one for each of its centre vertices.
    EXPECT_EQ(fanSize({"CaCb", "Cdefg", "hij", "Cklmn"}), 9U);
    EXPECT_EQ(fanSize({"CaCbd", "efg", "Chi"}), 6U);
}

TEST(SharedCentre, TotalDecidesNotTheSinglePolygon) {
    EXPECT_EQ(fanSize({"CCa", "bde", "fgh"}), 0U);
    EXPECT_EQ(fanSize({"CCa", "Cbd", "Cef"}), 0U);
    EXPECT_EQ(fanSize({"CCa", "Cbd"}), 0U);
}

TEST(SharedCentre, OverlappingTetrahedraBecomeOneFan) {
    CornerLists const tetrahedra = {{0, 7, 5, 2}, {7, 4, 3, 0}, {3, 6, 7, 5}, {1, 3, 6, 4}};
    GLObjectList list;
    TextCapture const errors(std::cerr);
    GLConnectivity().wrapLocal(tesselationOf(tetrahedra), &list, /*reduce=*/true);
    ASSERT_EQ(list[42]->size(), 1U);
    GLPolygon const& fan = *(*list[42])[0];
    EXPECT_TRUE(fan.isFan() && fan.isClosed());
    EXPECT_EQ(fan.size(), 8U);
    EXPECT_TRUE(sameObject(*list[42], wrapPlain(tetrahedra, 42, /*reduce=*/true)));
}

TEST(SharedCentre, OverlappingTetrahedraWithoutRoomStayAsCut) {
    CornerLists const tetrahedra = {{0, 1, 6, 7}, {0, 2, 3, 7}, {0, 2, 4, 6}};
    GLObjectList list;
    TextCapture const errors(std::cerr);
    GLConnectivity().wrapLocal(tesselationOf(tetrahedra), &list, /*reduce=*/true);
    EXPECT_TRUE(sameObject(*list[3], wrapPlain(tetrahedra, 3, /*reduce=*/false)));
}

bool hasSeveralCentres(PlainPolygon const& polygon) {
    auto const isCentre = [](PlainVertex const& vertex) { return isEqual(vertex.position, kCentre); };
    return std::count_if(polygon.vertices.begin(), polygon.vertices.end(), isCentre) > 1;
}

// Draws up to nine tetrahedra of any four different corners.
CornerLists anyTetrahedra(std::mt19937& random) {
    CornerLists polyhedra(1 + random() % 9);
    for (std::vector<unsigned int>& corners : polyhedra) {
        corners.resize(8);
        std::iota(corners.begin(), corners.end(), 0U);
        for (unsigned int i = 0; i < 4; ++i) {
            std::swap(corners[i], corners[i + random() % (8 - i)]);
        }
        corners.resize(4);
    }
    return polyhedra;
}

TEST(SharedCentre, AnyTetrahedraAreReducedAsThePlainRuleSays) {
    std::mt19937 random(5);
    unsigned int fansOfShared = 0;
    for (unsigned int round = 0; round < 300; ++round) {
        CornerLists const tetrahedra = anyTetrahedra(random);
        GLObjectList list;
        TextCapture const errors(std::cerr);
        GLConnectivity().wrapLocal(tesselationOf(tetrahedra), &list, /*reduce=*/true);
        for (unsigned int k = 1; k < 255; ++k) {
            ASSERT_TRUE(sameObject(*list[k], wrapPlain(tetrahedra, k, /*reduce=*/true))) << round << ", " << k;
            PlainObject const cuts = wrapPlain(tetrahedra, k, /*reduce=*/false);
            bool const isFan = list[k]->size() == 1 && (*list[k])[0]->isFan();
            fansOfShared += isFan && std::any_of(cuts.begin(), cuts.end(), hasSeveralCentres) ? 1U : 0U;
        }
    }
    EXPECT_GT(fansOfShared, 300U);
}

} // namespace
