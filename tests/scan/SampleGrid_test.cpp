// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/memory/MappedMemory.h"

#include "src/scan/SampleGrid.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace tamo::scan;
using tamo::test::MappedMemory;

constexpr std::int64_t kSides[] = {0, 1, 2, 7};

TEST(SampleGrid, SamplesAreStepVoxelsApartFromTheOriginOn) {
    MappedMemory memory(std::size_t{1} << 36U, MappedMemory::Access::kNone);
    unsigned char const* const data = memory.bytes() + (std::int64_t{1} << 35U);
    for (int const sign : {1, -1}) {
        for (unsigned int const step : {1U, 2U, 9U}) {
            // Addresses far past 32 bits.
            GLtVec3<int> const increments = {-3, sign * (1 << 20), sign * (1 << 24)};
            SampleGrid const grid = makeSampleGrid(data, increments, step, {5, 1 << 12, 300}, {1, 1, 1});
            for (std::int64_t i = 0; i < 4 * 4 * 4; ++i) {
                std::int64_t const x = kSides[i % 4];
                std::int64_t const y = kSides[i / 4 % 4];
                std::int64_t const z = kSides[i / 16];
                std::int64_t const farPlace = ((4096 + step * y) << 20U) + ((300 + step * z) << 24U);
                EXPECT_EQ(grid.at(x, y, z) - data, -3 * (5 + step * x) + sign * farPlace);
            }
        }
    }
}

TEST(SampleGrid, CountsTheWholeStepsOfAnUnsignedExtent) {
    unsigned char voxel = 0;
    for (unsigned int step = 1; step < 20; ++step) {
        for (int side = 1; side < 50; ++side) {
            SampleGrid const grid = makeSampleGrid(&voxel, {0, 0, 0}, step, {0, 0, 0}, {side, side + 1, side + 2});
            int const whole = static_cast<int>(step);
            EXPECT_EQ(grid.count.x, side / whole);
            EXPECT_EQ(grid.count.y, (side + 1) / whole);
            EXPECT_EQ(grid.count.z, (side + 2) / whole);
        }
    }
    SampleGrid const grid = makeSampleGrid(&voxel, {0, 0, 0}, 3, {0, 0, 0}, {-1, std::numeric_limits<int>::min(), -4});
    EXPECT_EQ(grid.count.x, 1431655765);
    EXPECT_EQ(grid.count.y, 715827882);
    EXPECT_EQ(grid.count.z, 1431655764);
}

TEST(SampleGrid, AStepPastTheSignedIntegersKeepsItsSign) {
    unsigned char voxel = 0;
    SampleGrid const grid = makeSampleGrid(&voxel, {1, -1, 2}, 0x80000000U, {0, 0, 0}, {-1, -1, -1});
    EXPECT_EQ(grid.stride.x, std::ptrdiff_t{1} << 31U);
    EXPECT_EQ(grid.stride.y, -(std::ptrdiff_t{1} << 31U));
    EXPECT_EQ(grid.stride.z, std::ptrdiff_t{1} << 32U);
}

TEST(SampleGrid, AGrownOneHasItsLayersMoreAtEitherEnd) {
    unsigned char voxels[20 * 20 * 20] = {};
    SampleGrid const grid = {&voxels[5 + 20 * 5 + 400 * 5], {1, 20, 400}, {4, 5, 6}};
    SampleGrid const grown = grid.grown({1, 0, 3}, {2, 4, 0});
    EXPECT_EQ(grown.count.x, 7);
    EXPECT_EQ(grown.count.y, 9);
    EXPECT_EQ(grown.count.z, 9);
    for (std::int64_t z = 0; z < 9; ++z) {
        for (std::int64_t y = 0; y < 9; ++y) {
            for (std::int64_t x = 0; x < 7; ++x) {
                EXPECT_EQ(grown.at(x, y, z), grid.at(x - 1, y, z - 3));
            }
        }
    }
}

} // namespace
