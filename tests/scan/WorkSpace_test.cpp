// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/memory/FailingNew.h"

#include "src/scan/WorkSpace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <new>
#include <vector>

namespace {

using namespace tamo::scan;
using tamo::test::FailingNew;

constexpr std::int64_t kLongest = 0xFFFFFFFF;

// Returns a dense grid, x first in memory, that is never read.
SampleGrid gridOf(std::int64_t x, std::int64_t y, std::int64_t z) {
    static unsigned char const kVoxel = 0;
    return {&kVoxel, {1, x, x * y}, {x, y, z}};
}

// Returns a plan that reads `slabs` slabs at once.
ReadPlan planOf(std::int64_t slabs) { return {ReadPlan::Axis::kX, 1, slabs, slabs, false}; }

std::int64_t bytesByFormula(std::int64_t nx, std::int64_t ny, std::int64_t nz, std::int64_t s) {
    std::int64_t const x = (nx + 7) / 8 * 8 + 8;
    std::int64_t const y = (ny + 7) / 8 * 8 + 8;
    std::int64_t const z = nz / 8 * 8 + 8;
    return (s + 2) * x * z / 8 + 2 * y * z / 8 + 10 * z + 560;
}

// The parts of a work space: where each starts, and its words.
std::vector<std::pair<BitTile*, std::int64_t>> partsOf(WorkSpace& space, SampleGrid const& grid) {
    SlabRing const& ring = space.ring();
    std::int64_t const octets = grid.count.z / 8 + 1;
    std::int64_t const side = ((grid.count.y + 7) / 8 + 1) * octets;
    CutTiles const& cut = space.cutTiles();
    return {{ring.tiles, ring.size * ring.slabSize},
            {space.firstSlab(), ring.slabSize},
            {space.lowerSide(), side},
            {space.upperSide(), side},
            {cut.cells, octets + 7},
            {cut.configurations, 8 * (octets + 7)},
            {cut.firstCell, octets + 7}};
}

void expectClearAndApart(WorkSpace& space, SampleGrid const& grid, ReadPlan const& plan) {
    ASSERT_TRUE(space.isTaken());
    EXPECT_EQ(space.ring().size, plan.slabsPerRead + 1);
    EXPECT_EQ(space.ring().octets, grid.count.z / 8 + 1);
    EXPECT_EQ(space.ring().slabSize, ((grid.count.x + 7) / 8 + 1) * space.ring().octets);
    auto parts = partsOf(space, grid);
    std::sort(parts.begin(), parts.end());
    BitTile const* end = parts[0].first;
    for (auto const& [first, words] : parts) {
        EXPECT_EQ(first, end);
        end = first + words;
        EXPECT_EQ(std::count(first, first + words, BitTile{0}), words);
    }
    EXPECT_EQ((end - parts[0].first) * 8, WorkSpace::bytesFor(grid, plan));
}

TEST(WorkSpaceMemory, HasTheSizeOfItsFormula) {
    for (std::int64_t const s : {1, 2, 8, 31, 128}) {
        for (std::int64_t x = 1; x < 20; ++x) {
            for (std::int64_t y = 1; y < 20; ++y) {
                for (std::int64_t z = 1; z < 20; ++z) {
                    EXPECT_EQ(WorkSpace::bytesFor(gridOf(x, y, z), planOf(s)), bytesByFormula(x, y, z, s));
                }
            }
        }
        EXPECT_EQ(WorkSpace::bytesFor(gridOf(1024, 1023, 1025), planOf(s)), bytesByFormula(1024, 1023, 1025, s));
        EXPECT_EQ(WorkSpace::bytesFor(gridOf(kLongest, 9, 90), planOf(s)), bytesByFormula(kLongest, 9, 90, s));
    }
}

TEST(WorkSpaceMemory, SizesPast64BitsAreTheLargestAndNotTaken) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    // The last is no larger than its volume, of which 64 bits do not hold the size either.
    for (SampleGrid const& grid : {SampleGrid{nullptr, {0, 0, 0}, {kLongest, kLongest, kLongest}},
                                   SampleGrid{nullptr, {1, 0, 0}, {kLongest, 1, kLongest}},
                                   SampleGrid{nullptr, {1, 0, 0}, {kLongest, 1000, kLongest}}}) {
        EXPECT_EQ(WorkSpace::bytesFor(grid, planOf(128)), kMost);
        FailingNew const counter;
        WorkSpace space(grid, planOf(128));
        EXPECT_FALSE(space.isTaken());
        EXPECT_EQ(FailingNew::allocations(), 0U);
    }
}

TEST(WorkSpaceMemory, IsNotTakenWhereItWouldBeLargerThanTheVolume) {
    for (SampleGrid const& grid : {gridOf(1, 1, 100000000), gridOf(2, 2, 30000), gridOf(30000, 2, 2)}) {
        ReadPlan const plan = makeReadPlan(grid);
        FailingNew const counter;
        WorkSpace space(grid, plan);
        EXPECT_FALSE(space.isTaken());
        EXPECT_EQ(FailingNew::allocations(), 0U);
    }
}

// Up to 4 KiB are at hand. Above, memory is taken from as many voxels on as it has bytes.
TEST(WorkSpaceMemory, IsTakenUpToTheSizeOfTheVolume) {
    bool wasTaken[2] = {};
    for (std::int64_t z = 1; z < 400; ++z) {
        SampleGrid const grid = gridOf(17, 18, z);
        ReadPlan const plan = planOf(8);
        std::int64_t const bytes = WorkSpace::bytesFor(grid, plan);
        bool const isLarge = bytes > 4096;
        FailingNew const counter;
        WorkSpace space(grid, plan);
        EXPECT_EQ(space.isTaken(), !isLarge || bytes <= 17 * 18 * z) << z;
        EXPECT_EQ(FailingNew::allocations(), isLarge && space.isTaken() ? 1U : 0U) << z;
        wasTaken[isLarge ? 1 : 0] |= space.isTaken();
    }
    EXPECT_TRUE(wasTaken[0] && wasTaken[1]);
}

TEST(WorkSpaceMemory, IsTakenWhereItIsJustAsLargeAsTheVolume) {
    for (SampleGrid const& grid : {gridOf(2, 25, 88), gridOf(40, 2, 118)}) {
        std::int64_t const voxels = grid.count.x * grid.count.y * grid.count.z;
        ASSERT_EQ(WorkSpace::bytesFor(grid, planOf(8)), voxels);
        ASSERT_GT(voxels, 4096);
        EXPECT_TRUE(WorkSpace(grid, planOf(8)).isTaken());
        EXPECT_FALSE(WorkSpace(grid, planOf(9)).isTaken());
    }
}

TEST(WorkSpaceMemory, IsAsLargeAsItSaysAndFreedInTheEnd) {
    SampleGrid const grid = gridOf(90, 80, 70);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    {
        FailingNew const counter;
        WorkSpace space(grid, makeReadPlan(grid));
        EXPECT_TRUE(space.isTaken());
        EXPECT_EQ(FailingNew::lastSize(), static_cast<std::size_t>(WorkSpace::bytesFor(grid, makeReadPlan(grid))));
    }
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

TEST(WorkSpaceMemory, IsNotTakenWhereItCannotBeAllocated) {
    SampleGrid const grid = gridOf(90, 80, 70);
    FailingNew const failing(1);
    WorkSpace space(grid, makeReadPlan(grid));
    EXPECT_TRUE(FailingNew::hasFailed());
    EXPECT_FALSE(space.isTaken());
}

// Allocated memory is handed out full of ones here.
TEST(WorkSpaceMemory, AllocatedPartsAreClearAndApart) {
    for (SampleGrid const& grid : {gridOf(90, 80, 70), gridOf(64, 64, 64), gridOf(41, 127, 33)}) {
        for (std::int64_t const slabs : {1, 8, 24}) {
            WorkSpace space(grid, planOf(slabs));
            expectClearAndApart(space, grid, planOf(slabs));
        }
    }
}

// The parts that are at hand lie in the work space itself, so this makes one in memory full of ones. The compiler must
// not see that nobody reads what it held before.
TEST(WorkSpaceMemory, PartsAtHandAreClearAndApart) {
    alignas(WorkSpace) unsigned char memory[sizeof(WorkSpace)];
    for (SampleGrid const& grid : {gridOf(8, 8, 8), gridOf(1, 1, 100), gridOf(20, 17, 3), gridOf(9, 30, 9)}) {
        for (std::int64_t const slabs : {1, 8}) {
            ASSERT_LE(WorkSpace::bytesFor(grid, planOf(slabs)), 4096);
            std::fill_n(static_cast<unsigned char volatile*>(memory), sizeof(memory), 0xFF);
            auto* const space = new (memory) WorkSpace(grid, planOf(slabs));
            expectClearAndApart(*space, grid, planOf(slabs));
            space->~WorkSpace();
        }
    }
}

} // namespace
