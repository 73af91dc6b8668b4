// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "conn/HandlerTest.h"

#include <algorithm>

namespace {

using namespace tamo::test;

class GLConnHandlers : public HandlerTest {};

TEST_F(GLConnHandlers, CollectsTheLinksThatCrossOutward) {
    EXPECT_EQ(GLConnAccess::collect(_conn, _desc, 0x01, 0xfe), 0x301U);
    EXPECT_EQ(order(), (Links{0, 3, 4}));
    EXPECT_EQ(_desc.normal(0), GLVec3f(1, 0, 0));
    EXPECT_EQ(_desc.normal(1), GLVec3f(0, 1, 0));
    EXPECT_EQ(_desc.normal(2), GLVec3f(0, 0, 1));
    // With the foreground at the other end the normals are reversed.
    EXPECT_EQ(GLConnAccess::collect(_conn, _desc, 0xfe, 0x01), 0x301U);
    EXPECT_EQ(_desc.normal(0), GLVec3f(-1, 0, 0));
    EXPECT_EQ(_desc.count, 3);
}

TEST_F(GLConnHandlers, CollectsNothingBetweenComponentsThatDoNotTouch) {
    add({1, 2});
    EXPECT_EQ(GLConnAccess::collect(_conn, _desc, 0x01, 0x80), 0U);
    EXPECT_EQ(_desc.count, 0);
}

TEST_F(GLConnHandlers, CollectsEveryKindOfLinkThatBothAdjacenciesShare) {
    setSystem(Neighborhood::N14I);
    EXPECT_EQ(GLConnAccess::collect(_conn, _desc, 0x01, 0xfe), 0x307U);
    EXPECT_EQ(order(), (Links{0, 3, 4, 13, 19, 22, 24}));
}

TEST_F(GLConnHandlers, CentreFanNeedsAVertex) {
    EXPECT_FALSE(handle(ConnHandler::kCase41, {}));
    EXPECT_EQ(_errors, "no vertex found\n");
    EXPECT_EQ(_object.size(), 0U);
}

TEST_F(GLConnHandlers, CentreFanNeedsACentre) {
    add({0, 13, 4});
    EXPECT_FALSE(handle(ConnHandler::kCase41, {}));
    EXPECT_EQ(_errors, "no vertex found\n");
    EXPECT_EQ(_object.size(), 0U);
    EXPECT_EQ(order(), (Links{0, 13, 4}));
}

TEST_F(GLConnHandlers, CentreFanTurnsAboutTheNormalOfTheCentre) {
    setSystem(Neighborhood::N14I);
    ConnArguments const arguments = collect(0x29, 0xd6, false);
    EXPECT_TRUE(handle(ConnHandler::kCase41, arguments));
    ASSERT_EQ(_object.size(), 1U);
    GLPolygon const& fan = *_object[0];
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
    EXPECT_EQ(_errors, "no vertex found\n");
    EXPECT_EQ(_object.size(), 0U);
}

TEST_F(GLConnHandlers, BentPathWithoutTheNormalIsReported) {
    // 0-3-4: the edge is 0-4. No vertex looks along z.
    add({0, 1, 2});
    ConnArguments arguments;
    arguments.fg = 0x19;
    arguments.bg = 0xe6;
    EXPECT_FALSE(handle(ConnHandler::kCase25, arguments));
    EXPECT_EQ(_errors, "normal not found\n");
    EXPECT_EQ(_object.size(), 0U);
}

TEST_F(GLConnHandlers, SplitWithoutASharedFaceDiagonalMakesNothing) {
    setSystem(Neighborhood::N14I);
    // The path 0-1-3-7 holds the centre link 0-7; vertices on edges alone.
    add({2, 5, 8});
    ConnArguments arguments;
    arguments.fg = 0x8b;
    arguments.bg = 0x74;
    EXPECT_TRUE(handle(ConnHandler::kCase27, arguments));
    EXPECT_EQ(_errors, "");
    EXPECT_EQ(_object.size(), 0U);
}

TEST_F(GLConnHandlers, SpaceDiagonalOfSixEndsWhereItBegan) {
    ConnArguments const arguments = collect(0x7e, 0x81, true);
    ASSERT_EQ(_desc.count, 6);
    EXPECT_TRUE(handle(ConnHandler::kSpaceDiagonal, arguments));
    ASSERT_EQ(_object.size(), 1U);
    GLPolygon const& strip = *_object[0];
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
    GLPolygon const& inverted = *_object[0];
    GLPolygon const& upright = *_object[1];
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
    EXPECT_EQ(_desc.conn.size(), 27U);
    ASSERT_EQ(_object[0]->size(), 6U);
    // The first edge led the ring; only its repetition is left, and not in front.
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
    EXPECT_EQ(_desc.conn.size(), 28U);
    EXPECT_EQ(_object[0]->size(), 8U);
}

} // namespace
