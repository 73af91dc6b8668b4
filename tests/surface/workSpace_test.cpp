// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/FailingNew.h"
#include "support/StreamCapture.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <iostream>

namespace {

using tamo::test::FailingNew;
using tamo::test::StreamCapture;

/// Takes note of the calls and of what was allocated up to them, without allocating anything itself.
class CallCounter : public IPolygonAggregator {
  public:
    void start() override { ++starts; }
    void finish() override {
        ++finishes;
        allocationsAtFinish = FailingNew::allocations();
    }
    void fetch(GLObject& /*object*/, GLCoord3f const& /*offset*/) override {
        if (fetches++ == 0) {
            allocationsAtFirstFetch = FailingNew::allocations();
        }
    }
    void fetch(GLObject& /*object*/) override {}

    int starts = 0;
    int finishes = 0;
    int fetches = 0;
    std::size_t allocationsAtFirstFetch = 0;
    std::size_t allocationsAtFinish = 0;
};

/// Scans a block that is too large for the scan to do without memory of its own; one voxel is repeated all over it.
class WorkSpace : public testing::Test {
  protected:
    WorkSpace() { GLObjectListForNeighborhood(Neighborhood::N14II, list); }

    bool scan(IPolygonAggregator& receiver) {
        return wrapGlobal(&voxel, {0, 0, 0}, 1, {0, 0, 0}, extent, list, receiver);
    }
    bool count(GLDataInfo& info) { return getGLDataInfo(&voxel, {0, 0, 0}, 1, {0, 0, 0}, extent, list, info); }

    unsigned char voxel = 1;
    GLtVec3<int> extent = {90, 80, 70};
    GLObjectList list;
};

TEST_F(WorkSpace, IsAllocatedBeforeTheFirstFetchAndFreedAtTheEnd) {
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    FailingNew const counter;
    CallCounter receiver;
    EXPECT_TRUE(scan(receiver));
    EXPECT_GT(receiver.fetches, 0);
    EXPECT_EQ(receiver.allocationsAtFirstFetch, 1U);
    EXPECT_EQ(receiver.allocationsAtFinish, 1U);
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

TEST_F(WorkSpace, AScanWithoutItIsRefusedWithItsMessage) {
    StreamCapture const messages(std::cerr);
    CallCounter receiver;
    bool result = true;
    {
        FailingNew const failing(1);
        result = scan(receiver);
        EXPECT_TRUE(FailingNew::hasFailed());
    }
    EXPECT_FALSE(result);
    EXPECT_EQ(messages.text(), "wrapGlobal alloc error\n");
    EXPECT_EQ(receiver.starts, 1);
    EXPECT_EQ(receiver.finishes, 1);
    EXPECT_EQ(receiver.fetches, 0);
}

TEST_F(WorkSpace, ACountWithoutItIsRefusedSilently) {
    StreamCapture const messages(std::cerr);
    GLDataInfo info({1, 2, 3}, {4, 5, 6}, 7, 8, 9, 10);
    bool result = true;
    {
        FailingNew const failing(1);
        result = count(info);
        EXPECT_TRUE(FailingNew::hasFailed());
    }
    EXPECT_FALSE(result);
    EXPECT_EQ(messages.text(), "");
    EXPECT_EQ(info.step(), 7U);
    EXPECT_EQ(info.primitives(), 10U);
}

} // namespace
