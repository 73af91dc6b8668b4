// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/ShapedText.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::parseShapedText;
using Pages = std::vector<std::int64_t>;

TEST(ShapedText, TakesNamedAxesApart) {
    auto const text = parseShapedText("{\"shape\": [2, 3, 4, 10, 12], \"axes\": \"TZCYX\"}", 12, 10);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->count(), 24);
    EXPECT_EQ(text->count('T'), 2);
    EXPECT_EQ(text->count('Z'), 3);
    EXPECT_EQ(text->count('C'), 4);
    EXPECT_EQ(text->pagesOf(1, 0), (Pages{1, 5, 9}));
    EXPECT_EQ(text->pagesOf(0, 1), (Pages{12, 16, 20}));
}

TEST(ShapedText, TakesTheAxisBeforeRowsForZWithoutNames) {
    auto const text = parseShapedText("{\"shape\": [2, 3, 4, 10, 12]}", 12, 10);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->count('Z'), 4);
    EXPECT_EQ(text->count('T'), 6);
    EXPECT_EQ(text->pagesOf(0, 5), (Pages{20, 21, 22, 23}));
    EXPECT_EQ(parseShapedText("{\"axes\": \"TQYX\", \"shape\": [2, 5, 10, 12]}", 12, 10)->count('Z'), 5);
}

TEST(ShapedText, HasNoSlicesWhereAllAxesAreNamedOtherwise) {
    auto const text = parseShapedText("{\"shape\": [4, 10, 12], \"axes\": \"TYX\"}", 12, 10);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->count('Z'), 1);
    EXPECT_EQ(text->pagesOf(0, 2), (Pages{2}));
}

TEST(ShapedText, MayHaveSamples) { EXPECT_EQ(parseShapedText("{\"shape\": [4, 10, 12, 1]}", 12, 10)->count('Z'), 4); }

TEST(ShapedText, IsNoOtherText) {
    for (char const* const text : {"", "{}", "shape", "{\"shape\": [10, 12]}", "{\"shape\": [4, 10, 13]}",
                                   "{\"shape\": [4, 10, 12", "{\"shape\":", "{\"shape\": []}",
                                   "{\"shape\": [-4, 10, 12]}", "{\"shape\": [0, 10, 12]}", "{\"shape\": [4,, 10, 12]}",
                                   "{\"shape\": 4}", " \"shape\": [4, 10, 12]", "{\"shape\": [99999999999, 10, 12]}"}) {
        EXPECT_FALSE(parseShapedText(text, 12, 10)) << text;
    }
}

TEST(ShapedText, CountsAsFarAsItCan) {
    auto const text = parseShapedText("{\"shape\": [2147483647, 2147483647, 2147483647, 10, 12]}", 12, 10);
    ASSERT_TRUE(text);
    EXPECT_GT(text->count(), std::int64_t{1} << 40);
}

} // namespace
