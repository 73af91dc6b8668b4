// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "conn/HandlerTest.h"

#include <utility>

namespace {

using namespace tamo::test;

class GLConnFanStart : public HandlerTest {};

TEST_F(GLConnFanStart, CornerShapeWithACentreIsAClosedFanEitherWay) {
    setSystem(Neighborhood::N14I);
    for (bool const inverted : {false, true}) {
        ConnArguments arguments = collect(0x07, 0xf8, inverted);
        ASSERT_TRUE(arguments.hasCentre);
        EXPECT_TRUE(handle(ConnHandler::kCase7, arguments));
        GLPolygon const& fan = *_object[_object.size() - 1];
        EXPECT_TRUE(fan.isFan() && fan.isClosed());
        EXPECT_EQ(fan.vertex(0), GLVec3f(0.5F, 0.5F, 0.5F));
    }
}

TEST_F(GLConnFanStart, CornerShapeStartsAtItsMiddleCorner) {
    // 0-1-3: the middle corner is 1, its link that leaves the shape is 1-5. In the background the same.
    handle(ConnHandler::kCase7, collect(0x0b, 0xf4, false));
    EXPECT_EQ(order().front(), 5U);
    handle(ConnHandler::kCase7, collect(0xf4, 0x0b, true));
    EXPECT_EQ(order().front(), 5U);
    EXPECT_EQ(_desc.normal(0), GLVec3f(0, 0, -1));
}

TEST_F(GLConnFanStart, CornerShapeIsFoundInTheAdjacencyOfItsSide) {
    // Edges are links of the background alone: as foreground the shape 0-1-3 has none, and link 0 serves for both.
    setSystem(Neighborhood::NHConfig{8});
    ConnArguments arguments;
    arguments.info = 1;
    arguments.fg = 0x0b;
    arguments.bg = 0xf4;
    add({4, 5, 0});
    handle(ConnHandler::kCase7, arguments);
    EXPECT_EQ(order().front(), 0U);
    _desc.count = 0;
    add({4, 5, 0});
    std::swap(arguments.fg, arguments.bg);
    arguments.inverted = true;
    handle(ConnHandler::kCase7, arguments);
    EXPECT_EQ(order().front(), 5U);
}

TEST_F(GLConnFanStart, CornerShapeStartsOnAFaceDiagonalWhereThereIsOne) {
    setSystem(Neighborhood::N14I);
    // 1-5-4 with the middle corner 5; no link of it is a space diagonal.
    ConnArguments const arguments = collect(0x32, 0xcd, false);
    ASSERT_FALSE(arguments.hasCentre);
    handle(ConnHandler::kCase7, arguments);
    EXPECT_EQ(_conn.getVInfo(order().front()) & 7, 2U);
    EXPECT_NE(_conn.getConn(order().front()) & 0x20, 0);
}

TEST_F(GLConnFanStart, FaceDiagonalStartsAcrossItself) {
    setSystem(Neighborhood::N26);
    // Corners 0 and 3: vertices that look along z are at right angles to their diagonal.
    handle(ConnHandler::kFaceDiagonal, collect(0x09, 0xf6, false));
    EXPECT_EQ(order().front(), 4U);
    EXPECT_EQ(_desc.normal(0), GLVec3f(0, 0, 1));
}

TEST_F(GLConnFanStart, FaceDiagonalStartsAtRightAnglesAlmostExactly) {
    // The diagonal is (-1, -1, 0): its products with the normals are 0.5, 0.00011 and 0.00009.
    _desc.addVertex(0, GLVec3f(-0.5F, 0, 0));
    _desc.addVertex(3, GLVec3f(0, -0.00011F, 1));
    _desc.addVertex(4, GLVec3f(0.00009F, 0, 1));
    ConnArguments arguments;
    arguments.fg = 0x09;
    handle(ConnHandler::kFaceDiagonal, arguments);
    EXPECT_EQ(order().front(), 4U);
}

TEST_F(GLConnFanStart, FaceDiagonalOfNothingStartsAtTheFirst) {
    add({4, 0, 3});
    EXPECT_TRUE(handle(ConnHandler::kFaceDiagonal, {}));
    // No corner at all: the diagonal is from corner 0 to itself, and every vertex is across it.
    EXPECT_EQ(order().front(), 4U);
}

TEST_F(GLConnFanStart, EdgeHandlerSetsTheFanFlag) {
    _desc.strip = true;
    add({1, 2, 3});
    handle(ConnHandler::kEdge, {});
    EXPECT_EQ(_object[0]->type(), 6);
    EXPECT_FALSE(_object[0]->isStrip());
}

TEST_F(GLConnFanStart, DispatchSetsTheFanFlagAndFollowsTheInnerComponent) {
    _desc.strip = true;
    ConnArguments arguments;
    arguments.info = GLConnAccess::collect(_conn, _desc, 0x01, 0xfe);
    arguments.fg = 0x01;
    arguments.bg = 0xfe;
    EXPECT_TRUE(GLConnAccess::dispatch(_conn, _object, _desc, arguments));
    EXPECT_TRUE(_object[0]->isFan());
    EXPECT_FALSE(_object[0]->isStrip());
}

TEST_F(GLConnFanStart, DispatchTakesTheInnerComponentUprightWhereTheTwoDoNotFillTheCell) {
    // 2, 4, 7 are the complement of a listed shape; beside 0-1-3 alone that shape counts, and as it stands.
    ConnArguments arguments;
    arguments.info = 1;
    arguments.fg = 0x94;
    arguments.bg = 0x0b;
    add({4, 5, 0});
    EXPECT_TRUE(GLConnAccess::dispatch(_conn, _object, _desc, arguments));
    // Upright, the edges are looked for in the foreground, which has none.
    EXPECT_EQ(order().front(), 0U);
}

TEST_F(GLConnFanStart, CornerShapeWithoutItsMiddleVertexIsReported) {
    add({0, 3, 4});
    ConnArguments arguments;
    arguments.info = 1;
    arguments.fg = 0xc8;
    arguments.bg = 0x37;
    EXPECT_FALSE(handle(ConnHandler::kCase7, arguments));
    EXPECT_EQ(_errors, "no vertex found\n");
    EXPECT_EQ(_object.size(), 0U);
}

using GLConnFanStartDeathTest = GLConnFanStart;

TEST_F(GLConnFanStartDeathTest, OddRingStops) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    // Four vertices, all looking up the diagonal 0-7: with three repeated, the last one has no partner.
    for (unsigned int const link : Links{4, 5, 8, 10}) {
        _desc.addVertex(static_cast<unsigned char>(link), GLVec3f(1, 1, 1));
    }
    ConnArguments arguments;
    arguments.fg = 0x81;
    arguments.bg = 0x7e;
    EXPECT_DEATH(GLConnAccess::handle(_conn, ConnHandler::kSpaceDiagonal, _object, _desc, arguments), "invalid index");
}

} // namespace
