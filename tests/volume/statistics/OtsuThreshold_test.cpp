// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/statistics/OtsuThreshold.h"

#include "volume/support/makeVolume.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using tamo::volume::computeOtsuThreshold;

TEST(OtsuThreshold, LiesInTheMiddleOfTheGapBetweenTwoClasses) {
    auto const volume = makeVolume<std::int16_t>(
        {8, 4, 2}, [](auto x, auto y, auto) { return static_cast<std::int16_t>(x < 3 ? y : 1000 + y); });
    double const threshold = computeOtsuThreshold(volume, {0, 1003}, {});
    EXPECT_GT(threshold, 450);
    EXPECT_LT(threshold, 550);
}

TEST(OtsuThreshold, IsThatOfScaledValues) {
    auto volume = makeVolume<float>({8, 1, 1}, [](auto x, auto, auto) {
        return x == 7 ? std::numeric_limits<float>::infinity() : x < 3 ? 1.0F : 5.0F;
    });
    volume.header.slope = 10;
    volume.header.intercept = -7;
    double const threshold = computeOtsuThreshold(volume, {3, 43}, {});
    EXPECT_GT(threshold, 20);
    EXPECT_LT(threshold, 26);
}

TEST(OtsuThreshold, DividesARangeThatIsLongerThanTheLargestNumber) {
    double const most = std::numeric_limits<double>::max();
    auto const volume = makeVolume<double>({8, 1, 1}, [most](auto x, auto, auto) {
        return x == 7 ? most : x < 3 ? -most : -0.75 * most;
    });
    double const threshold = computeOtsuThreshold(volume, {-most, most}, {});
    EXPECT_GT(threshold, -0.3 * most);
    EXPECT_LT(threshold, 0.5 * most);
}

TEST(OtsuThreshold, OfASingleValueIsThatValue) {
    auto const volume = makeVolume<std::uint8_t>({2, 2, 2}, [](auto, auto, auto) { return std::uint8_t{9}; });
    EXPECT_EQ(computeOtsuThreshold(volume, {9, 9}, {}), 9);
}

TEST(OtsuThreshold, CountsWhatLiesOutsideOfTheRangeAtItsEnds) {
    auto const volume = makeVolume<double>({4, 1, 1}, [](auto x, auto, auto) { return x < 2 ? -1e308 : 1e308; });
    double const threshold = computeOtsuThreshold(volume, {0, 256}, {});
    EXPECT_GT(threshold, 1);
    EXPECT_LT(threshold, 255);
    double const widest = computeOtsuThreshold(volume, {-1e308, 1e308}, {});
    EXPECT_GT(widest, -1e308);
    EXPECT_LT(widest, 1e308);
}

} // namespace
