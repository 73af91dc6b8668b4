// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

#include "support/memory/FailingNew.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

namespace {

using tamo::test::FailingNew;

TEST(GLPolygonAllocation, FailureLeavesASmallerPolygonAsItWas) {
    GLPolygon polygon(3);
    polygon.vertex(2) = GLVec3f{1, 2, 3};
    polygon.setStrip(true);
    {
        FailingNew const guard(1);
        EXPECT_THROW(polygon.resize(4), std::bad_alloc);
    }
    EXPECT_EQ(polygon.size(), 3U);
    EXPECT_EQ(polygon.vertex(2), (GLVec3f{1, 2, 3}));

    GLPolygon larger(9);
    larger.setFan(true);
    {
        FailingNew const guard(1);
        EXPECT_THROW(polygon = larger, std::bad_alloc);
    }
    EXPECT_EQ(polygon.size(), 3U);
    EXPECT_TRUE(polygon.isStrip());
}

TEST(GLPolygonAllocation, FailedConstructionLeaksNothing) {
    GLPolygon const polygon(3);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    {
        FailingNew const guard(1);
        EXPECT_THROW(GLPolygon(4U), std::bad_alloc);
    }
    {
        FailingNew const guard(1);
        EXPECT_THROW(GLPolygon(polygon, 2.0F), std::bad_alloc);
    }
    {
        FailingNew const guard(1);
        EXPECT_THROW(GLPolygon(polygon, GLCoord3f{1, 2, 3}), std::bad_alloc);
    }
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

// 19.2 GB are only asked for, never given.
TEST(GLPolygonAllocation, FloatsBeyondThirtyTwoBitsAreCountedInFull) {
    constexpr unsigned int kVertices = 800000000U;
    constexpr std::size_t kBytes = std::size_t{kVertices} * 6 * sizeof(float);
    static_assert(kBytes / sizeof(float) > 0xffffffffU);
    {
        FailingNew const guard(1);
        EXPECT_THROW(GLPolygon{kVertices}, std::bad_alloc);
        EXPECT_EQ(FailingNew::lastSize(), kBytes);
    }
    GLPolygon polygon(0);
    FailingNew const guard(1);
    EXPECT_THROW(polygon.resize(kVertices), std::bad_alloc);
    EXPECT_EQ(FailingNew::lastSize(), kBytes);
    EXPECT_EQ(polygon.size(), 0U);
}

TEST(GLPolygonAllocation, NormalsAndOrderingAllocateNothing) {
    GLPolygon polygon(8);
    FailingNew const guard(1);
    polygon.setNormals();
    polygon.sortCCW(polygon.normal(0));
    polygon.swapV(1, 2);
    polygon.eraseV(3);
    EXPECT_EQ(FailingNew::allocations(), 0U);
}

} // namespace
