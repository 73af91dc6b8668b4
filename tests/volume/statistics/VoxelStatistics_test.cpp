// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/statistics/VoxelStatistics.h"

#include "volume/support/makeVolume.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using tamo::volume::computeNeighbourShares;
using tamo::volume::computeStatistics;
using tamo::volume::NeighbourShares;
using tamo::volume::Volume;
using tamo::volume::VoxelStatistics;

template <typename T> class IntegerStatistics : public testing::Test {};
using Integers = testing::Types<std::uint8_t, std::int8_t, std::uint16_t, std::int16_t, std::uint32_t, std::int32_t,
                                std::uint64_t, std::int64_t>;
TYPED_TEST_SUITE(IntegerStatistics, Integers, );

TYPED_TEST(IntegerStatistics, CountEveryValueUpToTheEndsOfTheType) {
    using Limits = std::numeric_limits<TypeParam>;
    Volume const volume = makeVolume<TypeParam>({4, 3, 2}, [](auto x, auto y, auto z) {
        return x == 0 ? Limits::min() : x == 1 && y == 0 && z == 0 ? Limits::max() : TypeParam{7};
    });
    VoxelStatistics const statistics = computeStatistics(volume, {});
    ASSERT_TRUE(statistics.range && statistics.values);
    EXPECT_EQ(statistics.range->min, static_cast<double>(Limits::min()));
    EXPECT_EQ(statistics.range->max, static_cast<double>(Limits::max()));
    ASSERT_EQ(statistics.values->size(), 3U);
    EXPECT_EQ((*statistics.values)[0].voxels, 6U);
    EXPECT_EQ((*statistics.values)[1].voxels, 17U);
    EXPECT_EQ((*statistics.values)[2].voxels, 1U);
    EXPECT_TRUE(statistics.areWhole);
    NeighbourShares const shares = computeNeighbourShares(volume, 7, {});
    EXPECT_GT(shares.equal, 0);
    EXPECT_EQ(shares.oneApart, 0);
}

TEST(VoxelStatistics, LeaveWhatIsNotFiniteOutOfTheRange) {
    float const infinity = std::numeric_limits<float>::infinity();
    Volume volume = makeVolume<float>({4, 1, 1}, [&](auto x, auto, auto) {
        return std::array<float, 4>{std::nanf(""), infinity, -infinity, 2.5F}[static_cast<std::size_t>(x)];
    });
    volume.header.slope = -2;
    VoxelStatistics const statistics = computeStatistics(volume, {});
    EXPECT_EQ(statistics.nan, 1U);
    EXPECT_EQ(statistics.positiveInfinite, 1U);
    EXPECT_EQ(statistics.negativeInfinite, 1U);
    ASSERT_TRUE(statistics.range);
    EXPECT_EQ(statistics.range->max, -5);
    EXPECT_FALSE(statistics.areWhole);
}

TEST(VoxelStatistics, HaveNoRangeWithoutFiniteVoxels) {
    Volume const volume = makeVolume<double>({2, 2, 2}, [](auto, auto, auto) { return std::nan(""); });
    VoxelStatistics const statistics = computeStatistics(volume, {});
    EXPECT_FALSE(statistics.range);
    EXPECT_EQ(statistics.nan, 8U);
    EXPECT_TRUE(statistics.values && statistics.values->empty());
}

TEST(VoxelStatistics, AreOfScaledValuesInRisingOrder) {
    Volume volume =
        makeVolume<std::int16_t>({5, 1, 1}, [](auto x, auto, auto) { return static_cast<std::int16_t>(x); });
    volume.header.slope = -3;
    volume.header.intercept = 1;
    VoxelStatistics const statistics = computeStatistics(volume, {});
    EXPECT_EQ(statistics.range->min, -11);
    EXPECT_EQ(statistics.range->max, 1);
    EXPECT_EQ(statistics.values->front().value, -11);
}

TEST(VoxelStatistics, GiveUpCountingWhereThereAreTooManyValues) {
    auto const count = [](std::int64_t values) {
        return computeStatistics(
            makeVolume<std::int32_t>({values, 2, 1},
                                     [](auto x, auto, auto) { return static_cast<std::int32_t>(3 * x); }),
            {});
    };
    constexpr auto kMost = static_cast<std::int64_t>(VoxelStatistics::kMostValues);
    EXPECT_EQ(count(kMost).values->size(), VoxelStatistics::kMostValues);
    EXPECT_FALSE(count(kMost + 1).values);
    EXPECT_EQ(count(kMost + 1).range->max, static_cast<double>(3 * kMost));
}

TEST(NeighbourShares, LookAtPairsThatAreNotAllBackground) {
    // Along x: 0 0 5 5 6: of the pairs 0-0, 0-5, 5-5, 5-6 the first does not count.
    Volume const volume = makeVolume<std::uint8_t>({5, 1, 1}, [](auto x, auto, auto) {
        return std::array<std::uint8_t, 5>{0, 0, 5, 5, 6}[static_cast<std::size_t>(x)];
    });
    NeighbourShares const shares = computeNeighbourShares(volume, 0, {});
    EXPECT_DOUBLE_EQ(shares.equal, 1.0 / 3);
    EXPECT_DOUBLE_EQ(shares.oneApart, 1.0 / 2);
}

TEST(NeighbourShares, AreTheSameAlongEveryAxis) {
    auto const along = [](std::size_t axis) {
        tamo::volume::Size3 size{1, 1, 1};
        size[axis] = 6;
        return computeNeighbourShares(
            makeVolume<std::int32_t>(size,
                                     [](auto x, auto y, auto z) {
                                         return std::array<std::int32_t, 6>{
                                             9, 9, 8, -4, -4, 9}[static_cast<std::size_t>(x + y + z)];
                                     }),
            9, {});
    };
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_DOUBLE_EQ(along(axis).equal, 1.0 / 4);
        EXPECT_DOUBLE_EQ(along(axis).oneApart, 1.0 / 3);
    }
}

} // namespace
