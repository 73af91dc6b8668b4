// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/listed.h"

#include <gtest/gtest.h>

namespace {

std::string letters(std::size_t count, std::size_t most) {
    return tamo::volume::listed(count, most, [](std::size_t i) { return std::string(1, static_cast<char>('a' + i)); });
}

TEST(Listed, NamesTheFirstAndCountsTheOthers) {
    EXPECT_EQ(letters(0, 2), "");
    EXPECT_EQ(letters(1, 2), "a");
    EXPECT_EQ(letters(2, 2), "a, b");
    EXPECT_EQ(letters(5, 2), "a, b and 3 more");
}

} // namespace
