// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/DescriptorTwins.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace tamo::test;

// Returns points on a circle about (2, 2, 2), counter-clockwise seen from above.
std::vector<Plain3> circle(unsigned int count) {
    std::vector<Plain3> points;
    for (unsigned int k = 0; k < count; ++k) {
        double const turn = 6.283185307179586 * k / count;
        points.push_back({2 + static_cast<float>(std::cos(turn)), 2 + static_cast<float>(std::sin(turn)), 2});
    }
    return points;
}

void addRing(Twins& ring, unsigned int count) {
    for (unsigned int k = 0; k < count; ++k) {
        ring.add(k * 5 % count, {0, 0, 1});
    }
    ring.setFan(true);
}

TEST(GLPolygonDescBounds, FullFanClosesAgainAndAgain) {
    Twins ring(circle(28));
    addRing(ring, 26);
    for (unsigned int count = 27; count < 33; ++count) {
        ring.arrange(0, 0, true);
        EXPECT_EQ(ring.desc.count, count);
        ring.expectEqual();
    }
    EXPECT_EQ(ring.desc.createPolygon()->size(), 32U);
    EXPECT_FALSE(ring.desc.addVertex(0, GLVec3f()));
}

TEST(GLPolygonDescBounds, FanOverAllLinksCloses) {
    for (unsigned int const count : {2U, 3U, 7U, 26U}) {
        Twins ring(circle(count));
        ring.desc = GLPolygonDesc(ring.points, static_cast<unsigned char>(count));
        addRing(ring, count);
        ASSERT_EQ(ring.desc.conn.size(), count);
        ring.arrange(1, 0, true);
        EXPECT_EQ(ring.desc.conn.size(), count + 1);
        EXPECT_EQ(ring.desc.normalIndex.size(), count + 1);
        ring.expectEqual();
    }
}

TEST(GLPolygonDescBounds, FanClosesAfterRemovals) {
    Twins ring(circle(8));
    ring.desc = GLPolygonDesc(ring.points, 8);
    addRing(ring, 8);
    for (unsigned int const link : {3U, 6U}) {
        ring.desc.removeVertex(static_cast<unsigned char>(link));
        ring.plain.remove(link);
    }
    ring.arrange(0, 0, true);
    EXPECT_EQ(ring.desc.conn.size(), 7U);
    ring.expectEqual();
}

TEST(GLPolygonDescBounds, MoreVerticesThanLinksCanBeAdded) {
    Twins ring(circle(5));
    ring.desc = GLPolygonDesc(ring.points, 5);
    for (unsigned int k = 0; k < 26; ++k) {
        ASSERT_TRUE(ring.desc.addVertex(static_cast<unsigned char>(k % 5), GLVec3f(0, 0, 1)));
        ring.plain.add(k % 5, {0, 0, 1});
    }
    EXPECT_FALSE(ring.desc.addVertex(0, GLVec3f()));
    ring.arrange(0, 0, false);
    ring.expectEqual();
}

TEST(GLPolygonDescBounds, ClosingRepeatsVertexOneEvenIfAbsent) {
    std::vector<GLVec3f> const point(1);
    for (unsigned int const count : {0U, 1U}) {
        GLPolygonDesc desc(point, 1);
        desc.fan = true;
        if (count > 0) {
            desc.addVertex(0, GLVec3f(0, 0, 1));
        }
        desc.arrange(0, 0, true);
        EXPECT_EQ(desc.count, count + 1);
        EXPECT_EQ(desc.position(count), GLVec3f());
    }
}

TEST(GLPolygonDescBoundsDeathTest, CountPastItsTypeStops) {
    Twins ring(circle(28));
    addRing(ring, 26);
    while (ring.desc.count < 255) {
        ring.desc.arrange(0, 0, true);
    }
    EXPECT_DEATH(ring.desc.arrange(0, 0, true), "too many vertices");
}

} // namespace
