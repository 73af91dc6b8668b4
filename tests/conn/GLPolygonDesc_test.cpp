// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/conn/GLPolygonDesc.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Links = std::vector<unsigned char>;

// Point k lies at (k, k + 1, k + 2).
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
            ASSERT_TRUE(_desc.addVertex(link, GLVec3f(static_cast<float>(link), 0, 1)));
        }
    }

    [[nodiscard]] Links links() const { return {_desc.conn.begin(), _desc.conn.begin() + _desc.count}; }
    [[nodiscard]] Links slots() const { return {_desc.normalIndex.begin(), _desc.normalIndex.begin() + _desc.count}; }

    std::vector<GLVec3f> _points = countingPoints();
    GLPolygonDesc _desc{_points, 28};
};

TEST_F(GLPolygonDescTest, StartsEmpty) {
    EXPECT_EQ(_desc.count, 0);
    EXPECT_EQ(_desc.connCount, 28);
    EXPECT_EQ(_desc.conn, Links(28));
    EXPECT_EQ(_desc.normalIndex, Links(28));
    for (GLVec3f const& normal : _desc.normals) {
        EXPECT_EQ(normal, GLVec3f());
    }
    EXPECT_EQ(_desc.points, &_points);
    EXPECT_EQ(_desc.state, 0);
    EXPECT_FALSE(_desc.fan || _desc.strip || _desc.closed || _desc.ccw);
    EXPECT_EQ(_desc.centre, GLVec3f());
    EXPECT_EQ(_desc.meanNormal, GLVec3f());
}

TEST_F(GLPolygonDescTest, AddedVertexTakesTheNextSlot) {
    _desc.ccw = true;
    _desc.closed = true;
    add({5, 27, 5});
    EXPECT_EQ(links(), (Links{5, 27, 5}));
    EXPECT_EQ(slots(), (Links{0, 1, 2}));
    EXPECT_EQ(_desc.normals[1], GLVec3f(27, 0, 1));
    EXPECT_EQ(_desc.position(1), GLVec3f(27, 28, 29));
    EXPECT_EQ(_desc.normal(1), GLVec3f(27, 0, 1));
    EXPECT_FALSE(_desc.ccw);
    EXPECT_TRUE(_desc.closed);
}

TEST_F(GLPolygonDescTest, RefusesALinkThatDoesNotExist) {
    _desc.ccw = true;
    EXPECT_FALSE(_desc.addVertex(28, GLVec3f(1, 2, 3)));
    EXPECT_FALSE(_desc.addVertex(255, GLVec3f(1, 2, 3)));
    EXPECT_EQ(_desc.count, 0);
    EXPECT_TRUE(_desc.ccw);
    EXPECT_EQ(_desc.normals[0], GLVec3f());
    GLPolygonDesc two(_points, 2);
    EXPECT_TRUE(two.addVertex(1, GLVec3f()));
    EXPECT_FALSE(two.addVertex(2, GLVec3f()));
}

TEST_F(GLPolygonDescTest, HoldsTwentySixVertices) {
    for (unsigned char link = 0; link < 26; ++link) {
        EXPECT_TRUE(_desc.addVertex(link, GLVec3f()));
    }
    _desc.ccw = true;
    EXPECT_FALSE(_desc.addVertex(27, GLVec3f(1, 2, 3)));
    EXPECT_EQ(_desc.count, 26);
    EXPECT_EQ(_desc.conn[26], 0);
    EXPECT_TRUE(_desc.ccw);
}

TEST_F(GLPolygonDescTest, RemovingShrinksBothArrays) {
    add({3, 7, 3, 9});
    _desc.ccw = true;
    EXPECT_TRUE(_desc.removeVertex(3));
    EXPECT_EQ(links(), (Links{7, 3, 9}));
    EXPECT_EQ(slots(), (Links{1, 2, 3}));
    EXPECT_EQ(_desc.conn.size(), 27U);
    EXPECT_EQ(_desc.normalIndex.size(), 27U);
    EXPECT_EQ(_desc.connCount, 28);
    EXPECT_FALSE(_desc.ccw);
    EXPECT_EQ(_desc.normal(0), GLVec3f(7, 0, 1));
}

TEST_F(GLPolygonDescTest, RemovesTheLastVertexAndThenNothing) {
    add({4});
    EXPECT_TRUE(_desc.removeVertex(4));
    EXPECT_EQ(_desc.count, 0);
    EXPECT_FALSE(_desc.removeVertex(4));
    EXPECT_EQ(_desc.conn.size(), 27U);
}

TEST_F(GLPolygonDescTest, RemovingAnAbsentLinkChangesNothing) {
    // The arrays are filled with 0 behind the vertices: link 0 is not found there.
    EXPECT_FALSE(_desc.removeVertex(0));
    add({1, 2});
    _desc.ccw = true;
    EXPECT_FALSE(_desc.removeVertex(0));
    EXPECT_EQ(_desc.conn.size(), 28U);
    EXPECT_EQ(_desc.count, 2);
    EXPECT_TRUE(_desc.ccw);
}

TEST_F(GLPolygonDescTest, VertexAddedAfterARemovalReusesTheLastSlot) {
    add({1, 2, 3});
    _desc.removeVertex(1);
    add({8});
    EXPECT_EQ(slots(), (Links{1, 2, 2}));
    // The slot is shared: the older vertex takes over the newer normal.
    EXPECT_EQ(_desc.normal(1), GLVec3f(8, 0, 1));
    EXPECT_EQ(_desc.normal(2), GLVec3f(8, 0, 1));
}

TEST_F(GLPolygonDescTest, SwapTakesTheNormalAlong) {
    add({1, 2, 3});
    _desc.swapVertices(0, 2);
    EXPECT_EQ(links(), (Links{3, 2, 1}));
    EXPECT_EQ(slots(), (Links{2, 1, 0}));
    EXPECT_EQ(_desc.normal(0), GLVec3f(3, 0, 1));
}

TEST_F(GLPolygonDescTest, CentreIsTheMeanAndTheNormalHasUnitLength) {
    _desc.addVertex(0, GLVec3f(3, 0, 0));
    _desc.addVertex(1, GLVec3f(0, 4, 0));
    _desc.addVertex(5, GLVec3f(0, 0, 0));
    _desc.computeCentre();
    EXPECT_EQ(_desc.centre, GLVec3f(2, 3, 4));
    EXPECT_EQ(_desc.meanNormal, GLVec3f(3.0F / 5.0F, 4.0F / 5.0F, 0));
}

TEST_F(GLPolygonDescTest, NormalsThatCancelMakeNaN) {
    _desc.addVertex(0, GLVec3f(1, 0, 0));
    _desc.addVertex(1, GLVec3f(-1, 0, 0));
    _desc.computeCentre();
    EXPECT_TRUE(std::isnan(_desc.meanNormal.x) && std::isnan(_desc.meanNormal.y) && std::isnan(_desc.meanNormal.z));
}

TEST_F(GLPolygonDescTest, WithoutVerticesCentreAndNormalAreZero) {
    add({1, 2});
    _desc.computeCentre();
    _desc.count = 0;
    _desc.computeCentre();
    EXPECT_EQ(_desc.centre, GLVec3f());
    EXPECT_EQ(_desc.meanNormal, GLVec3f());
}

TEST_F(GLPolygonDescTest, PolygonTakesVerticesAndFlags) {
    add({6, 2, 4});
    _desc.swapVertices(0, 1);
    for (unsigned int flags = 0; flags < 16; ++flags) {
        _desc.fan = (flags & 1) != 0;
        _desc.strip = (flags & 2) != 0;
        _desc.closed = (flags & 4) != 0;
        _desc.ccw = (flags & 8) != 0;
        auto const polygon = _desc.createPolygon();
        EXPECT_EQ(polygon->isFan(), _desc.fan);
        EXPECT_EQ(polygon->isStrip(), _desc.strip);
        EXPECT_EQ(polygon->isClosed(), _desc.closed);
        EXPECT_EQ(polygon->isCCW(), _desc.ccw);
        ASSERT_EQ(polygon->size(), 3U);
        EXPECT_EQ(polygon->vertex(0), GLVec3f(2, 3, 4));
        EXPECT_EQ(polygon->normal(0), GLVec3f(2, 0, 1));
        EXPECT_EQ(polygon->vertex(1), GLVec3f(6, 7, 8));
        EXPECT_EQ(polygon->normal(2), GLVec3f(4, 0, 1));
        EXPECT_EQ(polygon->color(), GLVec3f());
    }
}

TEST_F(GLPolygonDescTest, EmptyPolygonHasNoVertices) { EXPECT_EQ(_desc.createPolygon()->size(), 0U); }

} // namespace
