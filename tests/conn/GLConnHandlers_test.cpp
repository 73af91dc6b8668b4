// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/GLConnAccess.h"
#include "support/TextCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

namespace {

using namespace tamo::test;
using Links = std::vector<unsigned int>;

class GLConnHandlers : public testing::Test {
  protected:
    void setSystem(Neighborhood::NHConfig config) { conn.setupConn(config); }

    /// Fills the descriptor with the links between two components, as the builder does.
    ConnArguments collect(unsigned char fg, unsigned char bg, bool inverted) {
        ConnArguments arguments;
        arguments.info = GLConnAccess::collect(conn, desc, fg, bg);
        arguments.fg = fg;
        arguments.bg = bg;
        arguments.inverted = inverted;
        arguments.hasCentre = (arguments.info & 4) != 0;
        desc.fan = true;
        desc.strip = false;
        return arguments;
    }

    void add(Links const& links) {
        for (unsigned int const link : links) {
            desc.addVertex(static_cast<unsigned char>(link), conn.getNormal(link, true));
        }
    }

    bool handle(ConnHandler handler, ConnArguments const& arguments) {
        TextCapture const capture(std::cerr);
        bool const result = GLConnAccess::handle(conn, handler, object, desc, arguments);
        errors = capture.text();
        return result;
    }

    [[nodiscard]] Links order() const { return {desc.conn.begin(), desc.conn.begin() + desc.count}; }

    GLConn conn;
    GLPolygonDesc desc{GLConnAccess::midpoints(conn), 28};
    GLObject object;
    std::string errors;
};

TEST_F(GLConnHandlers, CollectsTheLinksThatCrossOutward) {
    EXPECT_EQ(GLConnAccess::collect(conn, desc, 0x01, 0xfe), 0x301U);
    EXPECT_EQ(order(), (Links{0, 3, 4}));
    EXPECT_EQ(desc.normal(0), GLVec3f(1, 0, 0));
    EXPECT_EQ(desc.normal(1), GLVec3f(0, 1, 0));
    EXPECT_EQ(desc.normal(2), GLVec3f(0, 0, 1));
    // With the foreground at the other end the normals turn round.
    EXPECT_EQ(GLConnAccess::collect(conn, desc, 0xfe, 0x01), 0x301U);
    EXPECT_EQ(desc.normal(0), GLVec3f(-1, 0, 0));
    EXPECT_EQ(desc.count, 3);
}

TEST_F(GLConnHandlers, CollectsNothingBetweenComponentsThatDoNotTouch) {
    add({1, 2});
    EXPECT_EQ(GLConnAccess::collect(conn, desc, 0x01, 0x80), 0U);
    EXPECT_EQ(desc.count, 0);
}

TEST_F(GLConnHandlers, CollectsEveryKindOfLinkThatBothAdjacenciesShare) {
    setSystem(Neighborhood::N14I);
    EXPECT_EQ(GLConnAccess::collect(conn, desc, 0x01, 0xfe), 0x307U);
    EXPECT_EQ(order(), (Links{0, 3, 4, 13, 19, 22, 24}));
}

TEST_F(GLConnHandlers, CentreFanNeedsAVertex) {
    EXPECT_FALSE(handle(ConnHandler::kCase41, {}));
    EXPECT_EQ(errors, "no vertex found\n");
    EXPECT_EQ(object.size(), 0U);
}

TEST_F(GLConnHandlers, CentreFanNeedsACentre) {
    add({0, 13, 4});
    EXPECT_FALSE(handle(ConnHandler::kCase41, {}));
    EXPECT_EQ(errors, "no vertex found\n");
    EXPECT_EQ(object.size(), 0U);
    EXPECT_EQ(order(), (Links{0, 13, 4}));
}

TEST_F(GLConnHandlers, CentreFanTurnsAboutTheNormalOfTheCentre) {
    setSystem(Neighborhood::N14I);
    ConnArguments const arguments = collect(0x29, 0xd6, false);
    EXPECT_TRUE(handle(ConnHandler::kCase41, arguments));
    ASSERT_EQ(object.size(), 1U);
    GLPolygon const& fan = *object[0];
    EXPECT_TRUE(fan.isFan() && fan.isClosed() && fan.isCCW());
    EXPECT_EQ(fan.vertex(0), GLVec3f(0.5F, 0.5F, 0.5F));
    EXPECT_EQ(fan.vertex(1), fan.vertex(fan.size() - 1));
}

TEST_F(GLConnHandlers, PathWithoutASuitableVertexIsReported) {
    // Vertices on face diagonals alone, in a descriptor that is said to hold edges.
    add({13, 15, 17});
    ConnArguments arguments;
    arguments.fg = 0xe4;
    arguments.bg = 0x1b;
    EXPECT_FALSE(handle(ConnHandler::kCase27, arguments));
    EXPECT_EQ(errors, "no vertex found\n");
    EXPECT_EQ(object.size(), 0U);
}

TEST_F(GLConnHandlers, BentPathWithoutTheNormalIsReported) {
    // 0-3-4: the edge is 0-4. No vertex looks along z.
    add({0, 1, 2});
    ConnArguments arguments;
    arguments.fg = 0x19;
    arguments.bg = 0xe6;
    EXPECT_FALSE(handle(ConnHandler::kCase25, arguments));
    EXPECT_EQ(errors, "normal not found\n");
    EXPECT_EQ(object.size(), 0U);
}

TEST_F(GLConnHandlers, SplitWithoutASharedFaceDiagonalMakesNothing) {
    setSystem(Neighborhood::N14I);
    // The path 0-1-3-7 holds the centre link 0-7; vertices on edges alone.
    add({2, 5, 8});
    ConnArguments arguments;
    arguments.fg = 0x8b;
    arguments.bg = 0x74;
    EXPECT_TRUE(handle(ConnHandler::kCase27, arguments));
    EXPECT_EQ(errors, "");
    EXPECT_EQ(object.size(), 0U);
}

TEST_F(GLConnHandlers, SpaceDiagonalOfSixEndsWhereItBegan) {
    ConnArguments const arguments = collect(0x7e, 0x81, true);
    ASSERT_EQ(desc.count, 6);
    EXPECT_TRUE(handle(ConnHandler::kSpaceDiagonal, arguments));
    ASSERT_EQ(object.size(), 1U);
    GLPolygon const& strip = *object[0];
    ASSERT_EQ(strip.size(), 8U);
    EXPECT_EQ(strip.vertex(6), strip.vertex(0));
    EXPECT_EQ(strip.vertex(7), strip.vertex(1));
    EXPECT_EQ(strip.normal(7), strip.normal(1));
    EXPECT_TRUE(strip.isStrip() && strip.isCCW());
    EXPECT_FALSE(strip.isFan() || strip.isClosed());
}

TEST_F(GLConnHandlers, InvertedSpaceDiagonalOfSixTurnsTheOtherWay) {
    handle(ConnHandler::kSpaceDiagonal, collect(0x7e, 0x81, true));
    // The same ring, as if corners 0 and 7 were the foreground.
    ConnArguments plainOne = collect(0x7e, 0x81, false);
    plainOne.fg = 0x81;
    plainOne.bg = 0x7e;
    handle(ConnHandler::kSpaceDiagonal, plainOne);
    GLPolygon const& inverted = *object[0];
    GLPolygon const& upright = *object[1];
    EXPECT_EQ(upright.vertex(0), inverted.vertex(0));
    for (unsigned int k = 1; k < 6; ++k) {
        EXPECT_EQ(upright.vertex(k), inverted.vertex(6 - k));
    }
}

TEST_F(GLConnHandlers, RingLosesTheFirstEdgeForAnExtraVertex) {
    add({0, 4, 5, 10});
    ConnArguments arguments;
    arguments.fg = 0x81;
    arguments.bg = 0x7e;
    EXPECT_TRUE(handle(ConnHandler::kSpaceDiagonal, arguments));
    EXPECT_EQ(desc.conn.size(), 27U);
    ASSERT_EQ(object[0]->size(), 6U);
    // The first edge led the ring; only its repetition is left, and no longer in front.
    Links const links = order();
    EXPECT_NE(links.front(), 0U);
    EXPECT_EQ(std::count(links.begin(), links.end(), 0U), 1);
}

TEST_F(GLConnHandlers, RingWithoutTheFirstEdgeKeepsTheExtraVertex) {
    add({3, 4, 5, 8, 10});
    ConnArguments arguments;
    arguments.fg = 0x81;
    arguments.bg = 0x7e;
    EXPECT_TRUE(handle(ConnHandler::kSpaceDiagonal, arguments));
    EXPECT_EQ(desc.conn.size(), 28U);
    EXPECT_EQ(object[0]->size(), 8U);
}

TEST_F(GLConnHandlers, CornerShapeWithACentreIsAClosedFanEitherWay) {
    setSystem(Neighborhood::N14I);
    for (bool const inverted : {false, true}) {
        ConnArguments arguments = collect(0x07, 0xf8, inverted);
        ASSERT_TRUE(arguments.hasCentre);
        EXPECT_TRUE(handle(ConnHandler::kCase7, arguments));
        GLPolygon const& fan = *object[object.size() - 1];
        EXPECT_TRUE(fan.isFan() && fan.isClosed());
        EXPECT_EQ(fan.vertex(0), GLVec3f(0.5F, 0.5F, 0.5F));
    }
}

TEST_F(GLConnHandlers, CornerShapeStartsAtItsMiddleCorner) {
    // 0-1-3: the middle corner is 1, its link that leaves the shape is 1-5. In the background the same.
    handle(ConnHandler::kCase7, collect(0x0b, 0xf4, false));
    EXPECT_EQ(order().front(), 5U);
    handle(ConnHandler::kCase7, collect(0xf4, 0x0b, true));
    EXPECT_EQ(order().front(), 5U);
    EXPECT_EQ(desc.normal(0), GLVec3f(0, 0, -1));
}

TEST_F(GLConnHandlers, CornerShapeStartsOnAFaceDiagonalWhereThereIsOne) {
    setSystem(Neighborhood::N14I);
    // 1-5-4 with the middle corner 5; no link of it is a space diagonal.
    ConnArguments const arguments = collect(0x32, 0xcd, false);
    ASSERT_FALSE(arguments.hasCentre);
    handle(ConnHandler::kCase7, arguments);
    EXPECT_EQ(conn.getVInfo(order().front()) & 7, 2U);
    EXPECT_NE(conn.getConn(order().front()) & 0x20, 0);
}

TEST_F(GLConnHandlers, FaceDiagonalStartsAcrossItself) {
    setSystem(Neighborhood::N26);
    // Corners 0 and 3: vertices that look along z are at right angles to their diagonal.
    handle(ConnHandler::kFaceDiagonal, collect(0x09, 0xf6, false));
    EXPECT_EQ(order().front(), 4U);
    EXPECT_EQ(desc.normal(0), GLVec3f(0, 0, 1));
}

TEST_F(GLConnHandlers, FaceDiagonalOfNothingStartsAtTheFirst) {
    add({4, 0, 3});
    EXPECT_TRUE(handle(ConnHandler::kFaceDiagonal, {}));
    // No corner at all: the diagonal is from corner 0 to itself, and every vertex is across it.
    EXPECT_EQ(order().front(), 4U);
}

TEST_F(GLConnHandlers, EdgeHandlerSetsTheFanFlag) {
    desc.strip = true;
    add({1, 2, 3});
    handle(ConnHandler::kEdge, {});
    EXPECT_EQ(object[0]->type(), 6);
    EXPECT_FALSE(object[0]->isStrip());
}

TEST_F(GLConnHandlers, DispatchSetsTheFanFlagAndFollowsTheInnerComponent) {
    desc.strip = true;
    ConnArguments arguments;
    arguments.info = GLConnAccess::collect(conn, desc, 0x01, 0xfe);
    arguments.fg = 0x01;
    arguments.bg = 0xfe;
    EXPECT_TRUE(GLConnAccess::dispatch(conn, object, desc, arguments));
    EXPECT_TRUE(object[0]->isFan());
    EXPECT_FALSE(object[0]->isStrip());
}

using GLConnHandlersDeathTest = GLConnHandlers;

TEST_F(GLConnHandlersDeathTest, CornerShapeWithoutItsMiddleVertexStopsAtTheBounds) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    add({0, 3, 4});
    ConnArguments arguments;
    arguments.info = 1;
    arguments.fg = 0xc8;
    arguments.bg = 0x37;
    EXPECT_DEATH(GLConnAccess::handle(conn, ConnHandler::kCase7, object, desc, arguments), "");
}

} // namespace
