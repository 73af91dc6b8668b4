// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/Digest.h"
#include "support/StreamCapture.h"
#include "support/memory/FailingNew.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <vector>

namespace {

using tamo::test::Digest;
using tamo::test::FailingNew;
using tamo::test::StreamCapture;

// Takes note of the calls, their order, and what was allocated up to them, without allocating anything itself.
class CallCounter : public IPolygonAggregator {
  public:
    void start() override { ++starts; }
    void finish() override {
        ++finishes;
        allocationsAtFinish = FailingNew::allocations();
    }
    void fetch(GLObject& object, GLCoord3f const& offset) override {
        if (fetches++ == 0) {
            allocationsAtFirstFetch = FailingNew::allocations();
        }
        sequence.add(static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(&object)));
        sequence.add(offset.x);
        sequence.add(offset.y);
        sequence.add(offset.z);
    }
    void fetch(GLObject& /*object*/) override {}

    int starts = 0;
    int finishes = 0;
    int fetches = 0;
    std::size_t allocationsAtFirstFetch = 0;
    std::size_t allocationsAtFinish = 0;
    Digest sequence;
};

// Scans a block that is too large for the scan to do without memory of its own; one voxel is repeated all over it.
class WorkSpace : public testing::Test {
  protected:
    WorkSpace() { GLObjectListForNeighborhood(Neighborhood::N14II, list); }

    bool scan(IPolygonAggregator& receiver) {
        return wrapGlobal(&voxel, {0, 0, 0}, 1, {0, 0, 0}, extent, list, receiver);
    }

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

// s slabs are read at a time: one where y is the slowest axis, and more the nearer slabs lie to each other.
TEST_F(WorkSpace, HasTheSizeOfItsFormula) {
    struct Case {
        GLtVec3<int> extent;
        GLtVec3<int> increments;
        std::size_t s;
    };
    std::vector<unsigned char> voxels(200 * 160 * 90);
    for (Case const& c : {Case{{200, 160, 90}, {1, 200, 200 * 160}, 8},
                          {{200, 160, 90}, {1, 200 * 90, 200}, 1},
                          {{20, 160, 90}, {1, 20, 20 * 160}, 48},
                          {{200, 160, 90}, {160, 1, 200 * 160}, 128},
                          {{200, 100, 90}, {160, 1, 200 * 160}, 100},
                          {{40, 30, 90}, {1200, 40, 1}, 24},
                          {{40, 31, 90}, {2790, 9, 279}, 31}}) {
        auto const roundedUp = [](int n) { return static_cast<std::size_t>((n + 7) / 8 * 8 + 8); };
        std::size_t const x = roundedUp(c.extent.x);
        std::size_t const y = roundedUp(c.extent.y);
        std::size_t const z = static_cast<std::size_t>(c.extent.z / 8 * 8 + 8);
        CallCounter receiver;
        {
            FailingNew const counter;
            EXPECT_TRUE(wrapGlobal(voxels.data(), c.increments, 1, {0, 0, 0}, c.extent, list, receiver));
            EXPECT_EQ(FailingNew::allocations(), 1U);
        }
        EXPECT_EQ(FailingNew::lastSize(), (c.s + 2) * x * z / 8 + 2 * y * z / 8 + 10 * z + 560) << c.s;
    }
}

TEST_F(WorkSpace, AScanWithoutItIsTheSame) {
    std::vector<unsigned char> voxels(120 * 90 * 70);
    for (std::size_t i = 0; i < voxels.size(); ++i) {
        // Of other values than 0 and 1 the lowest bit counts, in this scan as in all others.
        voxels[i] = static_cast<unsigned char>(i * 37 % 251 / 3);
    }
    auto const scanVoxels = [&](CallCounter& receiver) {
        return wrapGlobal(voxels.data(), {1, 120, 120 * 90}, 1, {-3, 5, 7}, {100, 70, 50}, list, receiver);
    };
    CallCounter expected;
    EXPECT_TRUE(scanVoxels(expected));
    StreamCapture const messages(std::cerr);
    CallCounter receiver;
    {
        FailingNew const failing(1);
        EXPECT_TRUE(scanVoxels(receiver));
        EXPECT_TRUE(FailingNew::hasFailed());
    }
    EXPECT_EQ(messages.text(), "");
    EXPECT_EQ(receiver.starts, 1);
    EXPECT_EQ(receiver.finishes, 1);
    EXPECT_GT(receiver.fetches, 1000);
    EXPECT_EQ(receiver.fetches, expected.fetches);
    EXPECT_EQ(receiver.sequence.value(), expected.sequence.value());
}

TEST_F(WorkSpace, IsNotAllocatedWhereItWouldBeLargerThanTheVolume) {
    for (GLtVec3<int> const& thin : {GLtVec3<int>(1, 1, 1000000), {1, 1000000, 1}, {1000000, 1, 1}, {2, 2, 30000}}) {
        CallCounter receiver;
        FailingNew const counter;
        EXPECT_TRUE(wrapGlobal(&voxel, {0, 0, 0}, 1, {0, 0, 0}, thin, list, receiver));
        EXPECT_EQ(FailingNew::allocations(), 0U);
        // All cells but the full ones, of which there are some between samples along three axes only.
        int const inner = (thin.x - 1) * (thin.y - 1) * (thin.z - 1);
        EXPECT_EQ(receiver.fetches, (thin.x + 1) * (thin.y + 1) * (thin.z + 1) - inner);
    }
}

TEST_F(WorkSpace, OddVoxelsCountAndOthersDoNotWhateverElseTheyHold) {
    list[0]->push_back(new GLPolygon(3U));
    list[255]->push_back(new GLPolygon(4U));
    for (int const side : {3, 8, 9, 40}) {
        auto const size = static_cast<std::size_t>(side);
        std::vector<unsigned char> clean(size * size * size);
        std::vector<unsigned char> dirty(clean.size());
        for (std::size_t i = 0; i < clean.size(); ++i) {
            dirty[i] = static_cast<unsigned char>(i * 37 % 251);
            clean[i] = dirty[i] % 2;
        }
        for (GLtVec3<int> const increments :
             {GLtVec3<int>{1, side, side * side}, {side, 1, side * side}, {side * side, side, 1}, {0, 0, side}}) {
            GLDataInfo expected;
            GLDataInfo info;
            GLtVec3<int> const box = {side, side, side};
            EXPECT_TRUE(getGLDataInfo(clean.data(), increments, 1, {0, 0, 0}, box, list, expected));
            EXPECT_TRUE(getGLDataInfo(dirty.data(), increments, 1, {0, 0, 0}, box, list, info));
            EXPECT_EQ(info.vertices(), expected.vertices());
        }
    }
}

TEST_F(WorkSpace, ACountWithoutItIsTheSame) {
    // Every third voxel along x, every fifth along y: cells of several kinds, and ragged ends.
    std::vector<unsigned char> voxels(50 * 41 * 33);
    for (std::size_t i = 0; i < voxels.size(); ++i) {
        voxels[i] = i % 50 % 3 == 0 || i / 50 % 41 % 5 == 0 ? 1 : 0;
    }
    auto const countVoxels = [&](GLDataInfo& info) {
        return getGLDataInfo(voxels.data(), {1, 50, 50 * 41}, 1, {0, 0, 0}, {50, 41, 33}, list, info);
    };
    // Empty and full cells count as well where their slots hold polygons.
    list[0]->push_back(new GLPolygon(3U));
    list[255]->push_back(new GLPolygon(4U));
    GLDataInfo expected;
    EXPECT_TRUE(countVoxels(expected));
    StreamCapture const messages(std::cerr);
    GLDataInfo info;
    {
        FailingNew const failing(1);
        EXPECT_TRUE(countVoxels(info));
        EXPECT_TRUE(FailingNew::hasFailed());
    }
    EXPECT_EQ(messages.text(), "");
    EXPECT_GT(info.primitives(), 51U * 42U * 34U / 2U);
    EXPECT_EQ(info.primitives(), expected.primitives());
    EXPECT_EQ(info.triangles(), expected.triangles());
    EXPECT_EQ(info.vertices(), expected.vertices());
}

} // namespace
