// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "conn/HandlerTest.h"
#include "support/oracle/DescriptorTwins.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <utility>

// The values just at and just beyond each threshold of the cases.

namespace {

using namespace tamo::test;

class GLConnThresholds : public HandlerTest {
  protected:
    void add(unsigned int link, GLVec3f const& normal) {
        ASSERT_TRUE(_desc.addVertex(static_cast<unsigned char>(link), normal));
    }

    // Returns the number of the link between the two corners of a set.
    [[nodiscard]] unsigned int linkOf(unsigned int corners) const {
        unsigned int link = 0;
        while (_conn.getConn(link) != corners) {
            ++link;
        }
        return link;
    }

    // Makes the strip of five vertices around the diagonal 0-7 that all have the normal (x, 0, 0).
    Links stripOfNormal(float x) {
        _desc = GLPolygonDesc(GLConnAccess::midpoints(_conn), 28);
        for (unsigned int const link : {3U, 4U, 5U, 8U, 10U}) {
            add(link, GLVec3f(x, 0, 0));
        }
        ConnArguments arguments;
        arguments.fg = 0x81;
        arguments.bg = 0x7e;
        EXPECT_TRUE(handle(ConnHandler::kSpaceDiagonal, arguments));
        return order();
    }
};

TEST_F(GLConnThresholds, FaceDiagonalStartsBelowATenThousandth) {
    // The diagonal 0-3 is (-1, -1, 0).
    float const below = std::nextafterf(0.0001F, 0);
    add(0, GLVec3f(0, -0.0001F, 1));
    add(3, GLVec3f(0.0001F, 0, 1));
    add(4, GLVec3f(below, 0, 1));
    add(5, GLVec3f(0, 0, 1));
    ConnArguments arguments;
    arguments.fg = 0x09;
    handle(ConnHandler::kFaceDiagonal, arguments);
    EXPECT_EQ(order().front(), 4U);
}

TEST_F(GLConnThresholds, BentPathStartsAboveTheCosineOfParallels) {
    // 0-3-4: its edge runs along z. Normals along z lie in the splitting plane and belong to both halves.
    ConnArguments arguments;
    arguments.fg = 0x19;
    arguments.bg = 0xe6;
    add(1, GLVec3f(0, 0, 0.9999F));
    add(2, GLVec3f(0, 0, -0.9999F));
    EXPECT_FALSE(handle(ConnHandler::kCase25, arguments));
    EXPECT_EQ(_errors, "normal not found\n");
    add(6, GLVec3f(0, 0, -std::nextafterf(0.9999F, 1)));
    EXPECT_TRUE(handle(ConnHandler::kCase25, arguments));
    ASSERT_EQ(_object.size(), 2U);
    EXPECT_EQ(_object[0]->vertex(0), GLConnAccess::midpoints(_conn)[6]);
    EXPECT_EQ(_object[1]->vertex(0), GLConnAccess::midpoints(_conn)[6]);
}

TEST_F(GLConnThresholds, PathOfEdgesStartsAboveTheCosineOfParallels) {
    // 2-6-7-5: at right angles to its edges 2-6 and 6-7 is the y axis.
    ConnArguments arguments;
    arguments.fg = 0xe4;
    arguments.bg = 0x1b;
    add(linkOf(0x05), GLVec3f(0, 0.9999F, 0));
    add(linkOf(0x0c), GLVec3f(0, 0, 1));
    EXPECT_FALSE(handle(ConnHandler::kCase27, arguments));
    EXPECT_EQ(_errors, "no vertex found\n");
    add(linkOf(0x50), GLVec3f(0, std::nextafterf(0.9999F, 1), 0));
    EXPECT_TRUE(handle(ConnHandler::kCase27, arguments));
    EXPECT_EQ(order().front(), linkOf(0x50));
}

TEST_F(GLConnThresholds, StripTurnsPairsThatLookUpTheDiagonalAtAll) {
    Links const unturned = stripOfNormal(0);
    ASSERT_EQ(unturned.size(), 8U);
    EXPECT_EQ(unturned[6], unturned[0]);
    EXPECT_EQ(unturned[7], unturned[1]);
    EXPECT_EQ(stripOfNormal(-FLT_MIN), unturned);
    Links turned = stripOfNormal(FLT_MIN);
    for (std::size_t k = 0; k < 8; k += 2) {
        std::swap(turned[k], turned[k + 1]);
    }
    EXPECT_EQ(turned, unturned);
}

// Arranges four vertices about the origin. Vertex 1 is `aside` of the point opposite to vertex 0; vertex 2 lies between
// its true turn and half a turn.
std::vector<unsigned int> orderWithOpposite(float aside) {
    Twins ring({{1, 0, 0}, {-1, aside, 0}, {-2, aside, 0}, {2, -2 * aside, 0}});
    for (unsigned int k = 0; k < 4; ++k) {
        ring.add(k, {0, 0, 1});
    }
    ring.arrange(0, 0, false);
    ring.expectEqual();
    return ring.order();
}

TEST(GLPolygonDescThresholds, OppositeIsWhatIsLessThanATenThousandthAway) {
    float aside = 0.009F;
    while (double{std::nextafterf(aside, 1) * std::nextafterf(aside, 1)} < 0.0001) {
        aside = std::nextafterf(aside, 1);
    }
    EXPECT_EQ(aside * aside, 0.0001F) << "the float below 0.0001";
    EXPECT_EQ(orderWithOpposite(aside), (std::vector<unsigned int>{0, 2, 1, 3}));
    EXPECT_EQ(orderWithOpposite(std::nextafterf(aside, 1)), (std::vector<unsigned int>{0, 1, 2, 3}));
}

TEST(GLPolygonDescThresholds, FirstOfSeveralCentreVerticesLeads) {
    // Links 4 to 6 are on the cell centre.
    std::vector<Plain3> const points = {{1, 0.5F, 0.5F},    {0.5F, 1, 0.5F},    {0, 0.5F, 0.5F},   {0.5F, 0, 0.5F},
                                        {0.5F, 0.5F, 0.5F}, {0.5F, 0.5F, 0.5F}, {0.5F, 0.5F, 0.5F}};
    for (std::vector<unsigned int> const& links :
         {std::vector<unsigned int>{0, 4, 1, 5, 2, 3}, {6, 0, 4, 1, 2, 3}, {0, 1, 2, 3, 5, 4, 6}}) {
        Twins ring(points);
        for (unsigned int const link : links) {
            ring.add(link, {0, 0, 1});
        }
        ring.arrange(0, 0, false);
        ring.expectEqual();
        unsigned int const first = *std::find_if(links.begin(), links.end(), [](unsigned int k) { return k > 3; });
        EXPECT_EQ(ring.order().front(), first);
    }
}

} // namespace
