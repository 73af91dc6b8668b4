// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "src/scan/ReadPlan.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace {

using namespace tamo::scan;

// Memory that is never read, at the start of a pair of lines.
class Address {
  public:
    [[nodiscard]] unsigned char const* at(std::int64_t offset) const { return _pairs + 4 * kLinePair + offset; }

  private:
    alignas(kLinePair) unsigned char _pairs[8 * kLinePair] = {};
};

SampleGrid gridOf(GLtVec3<std::int64_t> const& count, GLtVec3<std::ptrdiff_t> const& stride) {
    static Address const kAddress;
    return {kAddress.at(0), stride, count};
}

struct Case {
    GLtVec3<std::int64_t> count;
    GLtVec3<std::ptrdiff_t> stride;
    ReadPlan::Axis axis;
    std::int64_t slabs;
};

void expectPlan(Case const& c) {
    SCOPED_TRACE(testing::Message() << c.count.x << " x " << c.count.y << " x " << c.count.z << " by " << c.stride.x
                                    << ", " << c.stride.y << ", " << c.stride.z);
    ReadPlan const plan = makeReadPlan(gridOf(c.count, c.stride));
    EXPECT_EQ(plan.axis, c.axis);
    EXPECT_EQ(plan.stride, c.axis == ReadPlan::Axis::kX   ? c.stride.x
                           : c.axis == ReadPlan::Axis::kY ? c.stride.y
                                                          : c.stride.z);
    EXPECT_EQ(plan.slabsPerRead, c.slabs);
}

TEST(ReadPlan, SeveralSlabsAreReadAtOnceWhereTheyLieSideBySide) {
    using Axis = ReadPlan::Axis;
    for (Case const& c : {Case{{200, 160, 90}, {1, 200, 200 * 160}, Axis::kX, 8},
                          {{200, 160, 90}, {1, 200 * 90, 200}, Axis::kX, 1},
                          {{20, 160, 90}, {1, 20, 20 * 160}, Axis::kX, 48},
                          {{200, 160, 90}, {160, 1, 200 * 160}, Axis::kY, 128},
                          {{200, 100, 90}, {160, 1, 200 * 160}, Axis::kY, 100},
                          {{40, 30, 90}, {1200, 40, 1}, Axis::kZ, 24},
                          {{40, 31, 90}, {2790, 9, 279}, Axis::kY, 31},
                          {{200, 160, 90}, {-1, -200, -200 * 160}, Axis::kX, 8},
                          {{200, 160, 90}, {-160, -1, -200 * 160}, Axis::kY, 128},
                          {{200, 160, 90}, {160 * 90, 90, 1}, Axis::kZ, 8},
                          {{200, 160, 90}, {90, 200 * 90, 1}, Axis::kZ, 1}}) {
        expectPlan(c);
    }
}

// An axis of less than eight samples has no run; in thin grids, few slabs of bits take as much room as the volume.
TEST(ReadPlan, ThinGridsAreReadAlongALongAxisAndAFewSlabsAtATime) {
    using Axis = ReadPlan::Axis;
    for (Case const& c : {Case{{1, 1, 100}, {1, 1, 1}, Axis::kZ, 1},
                          {{7, 8, 100}, {1, 7, 56}, Axis::kY, 8},
                          {{8, 7, 100}, {1, 8, 56}, Axis::kX, 7},
                          {{7, 7, 100}, {1, 7, 49}, Axis::kZ, 7},
                          {{4, 4000, 4}, {1, 4, 16000}, Axis::kY, 128},
                          {{100, 4, 4}, {1, 100, 400}, Axis::kX, 4},
                          {{1, 40, 40}, {1, 1, 40}, Axis::kY, 8},
                          {{1, 200, 40}, {1, 1, 200}, Axis::kY, 48},
                          {{1, 4000, 1}, {1, 1, 4000}, Axis::kY, 128}}) {
        expectPlan(c);
    }
}

TEST(ReadPlan, EqualStridesAndZeroStridesHaveAPlanAsWell) {
    for (std::ptrdiff_t const stride : {0, 1, -1, 5000}) {
        ReadPlan const plan = makeReadPlan(gridOf({20, 20, 20}, {stride, stride, stride}));
        EXPECT_EQ(plan.axis, ReadPlan::Axis::kX);
        EXPECT_EQ(plan.stride, stride);
        EXPECT_EQ(plan.slabsPerRead, 1);
    }
}

// The longest sides there are: two of them make a product that takes all 64 bits.
TEST(ReadPlan, LongSidesHaveAPlanAsWell) {
    constexpr std::int64_t kLongest = 0xFFFFFFFF;
    expectPlan({{kLongest, kLongest, 8}, {8, 1, 100}, ReadPlan::Axis::kY, 128});
    expectPlan({{8, kLongest, kLongest}, {100, 8, 1}, ReadPlan::Axis::kZ, 128});
    expectPlan({{kLongest, 8, kLongest}, {1, 100, 8}, ReadPlan::Axis::kX, 1});
}

TEST(ReadPlan, ReadsAMultipleOfEightSlabsOneOrAll) {
    std::mt19937 random(5);
    auto const below = [&](unsigned int limit) { return static_cast<std::int64_t>(random() % limit); };
    for (int i = 0; i < 20000; ++i) {
        auto const side = [&] { return 1 + below(random() % 2 == 0 ? 20 : 400); };
        auto const stride = [&] { return (1 + below(random() % 2 == 0 ? 12 : 5000)) * (random() % 2 == 0 ? 1 : -1); };
        static Address const kAddress;
        SampleGrid const grid = {kAddress.at(below(256)), {stride(), stride(), stride()}, {side(), side(), 7 + side()}};
        ReadPlan const plan = makeReadPlan(grid);
        ASSERT_TRUE(plan.slabsPerRead % 8 == 0 || plan.slabsPerRead == 1 || plan.slabsPerRead == grid.count.y);
        ASSERT_GE(plan.slabsPerRead, 1);
        ASSERT_LE(plan.slabsPerRead, grid.count.y);
        ASSERT_GE(plan.slabsOfFirstRead, 1);
        ASSERT_LE(plan.slabsOfFirstRead, plan.slabsPerRead);
        ASSERT_TRUE(plan.axis != ReadPlan::Axis::kY || plan.slabsPerRead >= 8);
    }
}

TEST(ReadPlan, TheFirstReadAlongYEndsWithAPairOfLines) {
    Address const address;
    for (std::ptrdiff_t const stride : {1, 2, 3, 8, 63, 64, -1, -2, -5, -64}) {
        for (std::int64_t offset = 0; offset < kLinePair; ++offset) {
            SampleGrid const grid = {address.at(offset), {9000, stride, 9000 * 50}, {50, 1000, 50}};
            ReadPlan const plan = makeReadPlan(grid);
            ASSERT_EQ(plan.axis, ReadPlan::Axis::kY);
            // The samples from the first on that lie in the same pair as it.
            std::int64_t inPair = 0;
            while (offset + inPair * stride >= 0 && offset + inPair * stride < kLinePair) {
                ++inPair;
            }
            ASSERT_EQ(plan.slabsOfFirstRead, std::min(inPair, plan.slabsPerRead)) << stride << " from " << offset;
        }
    }
}

TEST(ReadPlan, FarSamplesAndOtherAxesStartWithAWholeRead) {
    for (SampleGrid const& grid : {gridOf({50, 1000, 50}, {9000, 65, 450000}), gridOf({50, 60, 70}, {1, 50, 3000})}) {
        ReadPlan const plan = makeReadPlan(grid);
        EXPECT_GE(plan.slabsPerRead, 8);
        EXPECT_EQ(plan.slabsOfFirstRead, plan.slabsPerRead);
    }
}

bool asksAhead(GLtVec3<std::int64_t> const& count, GLtVec3<std::ptrdiff_t> const& stride) {
    return makeReadPlan(gridOf(count, stride)).asksAhead;
}

TEST(ReadPlan, AsksAheadForSpreadSamplesWhoseLinesStayInTheCache) {
    for (std::ptrdiff_t distance = 1; distance <= 12; ++distance) {
        bool const isSpread = distance > 1 && distance <= 8;
        std::ptrdiff_t const row = 1000 * distance;
        EXPECT_EQ(asksAhead({100, 100, 100}, {distance, row, 100 * row}), isSpread) << distance;
        EXPECT_EQ(asksAhead({100, 100, 100}, {-distance, 100 * row, row}), isSpread) << distance;
        EXPECT_EQ(asksAhead({100, 100, 100}, {100 * row, row, distance}), isSpread) << distance;
    }
    // A slab of 2 MiB.
    EXPECT_TRUE(asksAhead({1000, 100, 500}, {2, 10000000, 2000}));
    EXPECT_FALSE(asksAhead({1000, 100, 1100}, {2, 10000000, 2000}));
}

TEST(ReadPlan, AsksAheadAlongYWhereRowsShareNoLine) {
    EXPECT_TRUE(asksAhead({50, 100, 50}, {100, 1, 5000}));
    EXPECT_TRUE(asksAhead({50, 100, 50}, {6500, 64, 650000}));
    EXPECT_FALSE(asksAhead({50, 100, 50}, {6600, 65, 660000}));
    EXPECT_FALSE(asksAhead({50, 40, 50}, {64, 1, 5000}));
    EXPECT_FALSE(asksAhead({50, 40, 50}, {5000, 1, 64}));
}

} // namespace
