// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/parseNumber.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::parseCount;
using tamo::volume::parsePositive;

TEST(ParseCount, TakesWholeTextsOfDigitsThatFit) {
    EXPECT_EQ(parseCount("0"), 0);
    EXPECT_EQ(parseCount("2147483647"), 2147483647);
    for (char const* const text : {"", "-1", "+1", "1 ", " 1", "1.0", "2147483648", "x"}) {
        EXPECT_FALSE(parseCount(text)) << text;
    }
}

TEST(ParsePositive, TakesWholeTextsOfFiniteNumbersAboveZero) {
    EXPECT_EQ(parsePositive("0.5"), 0.5);
    EXPECT_EQ(parsePositive("1e-3"), 1e-3);
    for (char const* const text : {"", "0", "-1", "inf", "nan", "1e999", "0,5", "1 mm"}) {
        EXPECT_FALSE(parsePositive(text)) << text;
    }
}

} // namespace
