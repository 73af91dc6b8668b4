// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../../src/conn/CaseHandler.h"

#include <tamo/conn/GLConn.h>

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

TEST(CaseHandler, ALinkIsInsideWhereBothItsCornersAre) {
    EXPECT_TRUE(tamo::isInside(0x81, 0x81));
    EXPECT_TRUE(tamo::isInside(0x81, 0xff));
    EXPECT_FALSE(tamo::isInside(0x81, 0x80));
    EXPECT_FALSE(tamo::isInside(0x81, 0x01));
    EXPECT_FALSE(tamo::isInside(0x81, 0x7e));
}

TEST(CaseHandler, TheCornerPastTheLastIsZero) {
    EXPECT_EQ(tamo::cornerOrZero(0x82, 0), 1U);
    EXPECT_EQ(tamo::cornerOrZero(0x82, 1), 1U);
    EXPECT_EQ(tamo::cornerOrZero(0x82, 2), 7U);
    EXPECT_EQ(tamo::cornerOrZero(0x02, 2), 0U);
}

// Under N26 links 0 to 11 are edges, 12 to 23 face diagonals, 24 to 27 space diagonals.
class VertexSearch : public testing::Test {
  protected:
    VertexSearch() {
        for (unsigned char const link : std::array<unsigned char, 4>{13, 3, 12, 4}) {
            desc.addVertex(link, {0, 0, 1});
        }
    }

    GLConn links{Neighborhood::N26};
    std::vector<GLVec3f> points = std::vector<GLVec3f>(28);
    GLPolygonDesc desc{points, 28};
};

TEST_F(VertexSearch, FindsTheFirstVertexThatIsAccepted) {
    EXPECT_EQ(tamo::firstVertex(desc, 99, [this](unsigned char k) { return desc.conn[k] < 13; }), 1);
    EXPECT_EQ(tamo::firstVertex(desc, 99, [](unsigned char) { return false; }), 99);
}

TEST_F(VertexSearch, FindsTheFirstVertexOfAType) {
    EXPECT_EQ(tamo::findVertexOfType(links, desc, NhProp::kFaceDiagonalInfo, 99), 0);
    EXPECT_EQ(tamo::findVertexOfType(links, desc, NhProp::kEdgeInfo, 99), 1);
    EXPECT_EQ(tamo::findVertexOfType(links, desc, NhProp::kSpaceDiagonalInfo, 99), 99);
}

TEST_F(VertexSearch, ListsTheLastLinksNewestFirst) {
    auto const isEven = [](unsigned int link) { return link % 2 == 0; };
    EXPECT_EQ(tamo::lastLinks<3>(links, 99, isEven), (std::array<unsigned int, 3>{26, 24, 22}));
    auto const isOne = [](unsigned int link) { return link == 1; };
    EXPECT_EQ(tamo::lastLinks<3>(links, 99, isOne), (std::array<unsigned int, 3>{1, 99, 99}));
}

TEST_F(VertexSearch, HasInfoWantsAllBits) {
    EXPECT_TRUE(tamo::hasInfo(links, 0, NhProp::kEdgeInfo | NhProp::kForegroundInfo));
    EXPECT_FALSE(tamo::hasInfo(links, 24, NhProp::kSpaceDiagonalInfo | NhProp::kBackgroundInfo));
}

TEST_F(VertexSearch, AppendsThePolygonThatWasArranged) {
    GLObject object;
    tamo::appendArranged(object, desc, 0, /*close=*/false);
    ASSERT_EQ(object.size(), 1U);
    EXPECT_EQ(object[0]->size(), 4U);
    EXPECT_TRUE(desc.ccw);
}

} // namespace
