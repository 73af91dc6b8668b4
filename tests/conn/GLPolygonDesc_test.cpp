// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/conn/GLPolygonDesc.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Links = std::vector<unsigned char>;

/// Point k lies at (k, k + 1, k + 2).
std::vector<GLVec3f> countingPoints() {
    std::vector<GLVec3f> points;
    for (unsigned int k = 0; k < 28; ++k) {
        auto const x = static_cast<float>(k);
        points.emplace_back(x, x + 1, x + 2);
    }
    return points;
}

class GLPolygonDescTest : public testing::Test {
  protected:
    void add(Links const& links) {
        for (unsigned char const link : links) {
            ASSERT_TRUE(desc.addVertex(link, GLVec3f(static_cast<float>(link), 0, 1)));
        }
    }

    [[nodiscard]] Links links() const { return {desc.conn.begin(), desc.conn.begin() + desc.count}; }
    [[nodiscard]] Links slots() const { return {desc.normalIndex.begin(), desc.normalIndex.begin() + desc.count}; }

    std::vector<GLVec3f> points = countingPoints();
    GLPolygonDesc desc{points, 28};
};

TEST_F(GLPolygonDescTest, StartsEmpty) {
    EXPECT_EQ(desc.count, 0);
    EXPECT_EQ(desc.connCount, 28);
    EXPECT_EQ(desc.conn, Links(28));
    EXPECT_EQ(desc.normalIndex, Links(28));
    for (GLVec3f const& normal : desc.normals) {
        EXPECT_EQ(normal, GLVec3f());
    }
    EXPECT_EQ(desc.points, &points);
    EXPECT_EQ(desc.state, 0);
    EXPECT_FALSE(desc.fan || desc.strip || desc.closed || desc.ccw);
    EXPECT_EQ(desc.centre, GLVec3f());
    EXPECT_EQ(desc.meanNormal, GLVec3f());
}

TEST_F(GLPolygonDescTest, AddedVertexTakesTheNextSlot) {
    desc.ccw = true;
    desc.closed = true;
    add({5, 27, 5});
    EXPECT_EQ(links(), (Links{5, 27, 5}));
    EXPECT_EQ(slots(), (Links{0, 1, 2}));
    EXPECT_EQ(desc.normals[1], GLVec3f(27, 0, 1));
    EXPECT_EQ(desc.position(1), GLVec3f(27, 28, 29));
    EXPECT_EQ(desc.normal(1), GLVec3f(27, 0, 1));
    EXPECT_FALSE(desc.ccw);
    EXPECT_TRUE(desc.closed);
}

TEST_F(GLPolygonDescTest, RefusesALinkThatThereIsNot) {
    desc.ccw = true;
    EXPECT_FALSE(desc.addVertex(28, GLVec3f(1, 2, 3)));
    EXPECT_FALSE(desc.addVertex(255, GLVec3f(1, 2, 3)));
    EXPECT_EQ(desc.count, 0);
    EXPECT_TRUE(desc.ccw);
    EXPECT_EQ(desc.normals[0], GLVec3f());
    GLPolygonDesc two(points, 2);
    EXPECT_TRUE(two.addVertex(1, GLVec3f()));
    EXPECT_FALSE(two.addVertex(2, GLVec3f()));
}

TEST_F(GLPolygonDescTest, HoldsTwentySixVertices) {
    for (unsigned char link = 0; link < 26; ++link) {
        EXPECT_TRUE(desc.addVertex(link, GLVec3f()));
    }
    desc.ccw = true;
    EXPECT_FALSE(desc.addVertex(27, GLVec3f(1, 2, 3)));
    EXPECT_EQ(desc.count, 26);
    EXPECT_EQ(desc.conn[26], 0);
    EXPECT_TRUE(desc.ccw);
}

TEST_F(GLPolygonDescTest, RemovingShrinksBothArrays) {
    add({3, 7, 3, 9});
    desc.ccw = true;
    EXPECT_TRUE(desc.removeVertex(3));
    EXPECT_EQ(links(), (Links{7, 3, 9}));
    EXPECT_EQ(slots(), (Links{1, 2, 3}));
    EXPECT_EQ(desc.conn.size(), 27U);
    EXPECT_EQ(desc.normalIndex.size(), 27U);
    EXPECT_EQ(desc.connCount, 28);
    EXPECT_FALSE(desc.ccw);
    EXPECT_EQ(desc.normal(0), GLVec3f(7, 0, 1));
}

TEST_F(GLPolygonDescTest, RemovesTheLastVertexAndThenNothing) {
    add({4});
    EXPECT_TRUE(desc.removeVertex(4));
    EXPECT_EQ(desc.count, 0);
    EXPECT_FALSE(desc.removeVertex(4));
    EXPECT_EQ(desc.conn.size(), 27U);
}

TEST_F(GLPolygonDescTest, RemovingWhatIsNotThereChangesNothing) {
    // The arrays are filled with 0 behind the vertices: link 0 is not found there.
    EXPECT_FALSE(desc.removeVertex(0));
    add({1, 2});
    desc.ccw = true;
    EXPECT_FALSE(desc.removeVertex(0));
    EXPECT_EQ(desc.conn.size(), 28U);
    EXPECT_EQ(desc.count, 2);
    EXPECT_TRUE(desc.ccw);
}

TEST_F(GLPolygonDescTest, VertexAddedAfterARemovalReusesTheLastSlot) {
    add({1, 2, 3});
    desc.removeVertex(1);
    add({8});
    EXPECT_EQ(slots(), (Links{1, 2, 2}));
    // The slot is shared: the older vertex takes over the newer normal.
    EXPECT_EQ(desc.normal(1), GLVec3f(8, 0, 1));
    EXPECT_EQ(desc.normal(2), GLVec3f(8, 0, 1));
}

TEST_F(GLPolygonDescTest, SwapTakesTheNormalAlong) {
    add({1, 2, 3});
    desc.swapVertices(0, 2);
    EXPECT_EQ(links(), (Links{3, 2, 1}));
    EXPECT_EQ(slots(), (Links{2, 1, 0}));
    EXPECT_EQ(desc.normal(0), GLVec3f(3, 0, 1));
}

TEST_F(GLPolygonDescTest, CentreIsTheMeanAndTheNormalHasUnitLength) {
    desc.addVertex(0, GLVec3f(3, 0, 0));
    desc.addVertex(1, GLVec3f(0, 4, 0));
    desc.addVertex(5, GLVec3f(0, 0, 0));
    desc.computeCentre();
    EXPECT_EQ(desc.centre, GLVec3f(2, 3, 4));
    EXPECT_EQ(desc.meanNormal, GLVec3f(3.0F / 5.0F, 4.0F / 5.0F, 0));
}

TEST_F(GLPolygonDescTest, NormalsThatCancelMakeNonNumbers) {
    desc.addVertex(0, GLVec3f(1, 0, 0));
    desc.addVertex(1, GLVec3f(-1, 0, 0));
    desc.computeCentre();
    EXPECT_TRUE(std::isnan(desc.meanNormal.x) && std::isnan(desc.meanNormal.y) && std::isnan(desc.meanNormal.z));
}

TEST_F(GLPolygonDescTest, WithoutVerticesCentreAndNormalAreZero) {
    add({1, 2});
    desc.computeCentre();
    desc.count = 0;
    desc.computeCentre();
    EXPECT_EQ(desc.centre, GLVec3f());
    EXPECT_EQ(desc.meanNormal, GLVec3f());
}

TEST_F(GLPolygonDescTest, PolygonTakesVerticesAndFlags) {
    add({6, 2, 4});
    desc.swapVertices(0, 1);
    for (unsigned int flags = 0; flags < 16; ++flags) {
        desc.fan = (flags & 1) != 0;
        desc.strip = (flags & 2) != 0;
        desc.closed = (flags & 4) != 0;
        desc.ccw = (flags & 8) != 0;
        auto const polygon = desc.createPolygon();
        EXPECT_EQ(polygon->isFan(), desc.fan);
        EXPECT_EQ(polygon->isStrip(), desc.strip);
        EXPECT_EQ(polygon->isClosed(), desc.closed);
        EXPECT_EQ(polygon->isCCW(), desc.ccw);
        ASSERT_EQ(polygon->size(), 3U);
        EXPECT_EQ(polygon->vertex(0), GLVec3f(2, 3, 4));
        EXPECT_EQ(polygon->normal(0), GLVec3f(2, 0, 1));
        EXPECT_EQ(polygon->vertex(1), GLVec3f(6, 7, 8));
        EXPECT_EQ(polygon->normal(2), GLVec3f(4, 0, 1));
        EXPECT_EQ(polygon->color(), GLVec3f());
    }
}

TEST_F(GLPolygonDescTest, EmptyPolygonHasNoVertices) { EXPECT_EQ(desc.createPolygon()->size(), 0U); }

} // namespace
