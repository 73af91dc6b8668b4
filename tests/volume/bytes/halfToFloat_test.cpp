// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/halfToFloat.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::halfToFloat;

// From exponent to exponent the numbers lie twice as far apart, from 2^-24 on.
TEST(HalfToFloat, RisesThroughAllFiniteNumbersInTheirSteps) {
    float expected = 0;
    float step = std::ldexp(1.0F, -24);
    for (std::uint16_t half = 0; half < 0x7C00; ++half) {
        ASSERT_EQ(halfToFloat(half), expected) << half;
        ASSERT_EQ(halfToFloat(static_cast<std::uint16_t>(half | 0x8000)), -expected) << half;
        step *= half >= 0x800 && half % 0x400 == 0 ? 2.0F : 1.0F;
        expected += step;
    }
    EXPECT_EQ(halfToFloat(0x3C00), 1);
    EXPECT_EQ(halfToFloat(0x7BFF), 65504);
}

TEST(HalfToFloat, HasInfinitiesNaNAndTwoZeros) {
    EXPECT_EQ(halfToFloat(0x7C00), std::numeric_limits<float>::infinity());
    EXPECT_EQ(halfToFloat(0xFC00), -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(halfToFloat(0x7C01)));
    EXPECT_TRUE(std::isnan(halfToFloat(0xFFFF)));
    EXPECT_TRUE(std::signbit(halfToFloat(0x8000)));
    EXPECT_FALSE(std::signbit(halfToFloat(0)));
}

} // namespace
