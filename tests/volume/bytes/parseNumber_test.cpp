// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/parseNumber.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using tamo::volume::parseCount;
using tamo::volume::parseNumber;
using tamo::volume::parsePositive;

template <typename T> bool isNumber(std::string_view word) {
    T value{};
    return parseNumber(word, value);
}

TEST(parseNumber, TakesAllNumbersOfEveryIntegerType) {
    for (int i = -400; i <= 400; ++i) {
        std::string const word = std::to_string(i);
        std::int8_t small = 0;
        EXPECT_EQ(parseNumber<std::int8_t>(word, small), i >= -128 && i <= 127);
        EXPECT_TRUE(i < -128 || i > 127 || small == i);
        EXPECT_EQ(isNumber<std::uint8_t>(word), i >= 0 && i <= 255);
    }
    EXPECT_TRUE(isNumber<std::uint64_t>("18446744073709551615"));
    EXPECT_FALSE(isNumber<std::uint64_t>("18446744073709551616"));
}

TEST(parseNumber, TakesNoPartOfAWord) {
    for (char const* const word : {"", "+", "-", "1 ", " 1", "1x", "1,5", "0x10", "+-1", "1e", "--1"}) {
        EXPECT_FALSE(isNumber<double>(word)) << word;
        EXPECT_FALSE(isNumber<int>(word)) << word;
    }
    EXPECT_FALSE(isNumber<double>(std::string_view("1\0", 2)));
}

TEST(parseNumber, TakesNoInfinityForALargeNumber) {
    EXPECT_TRUE(isNumber<double>("-inf"));
    EXPECT_TRUE(isNumber<float>("1e38"));
    EXPECT_FALSE(isNumber<float>("1e39"));
    EXPECT_FALSE(isNumber<double>("-1e400"));
    EXPECT_TRUE(isNumber<double>("-1e-400"));
}

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
