// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/Size3.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::isCountable;

TEST(Size3, IsCountableWhileTheBytesOfItsVoxelsFitInto64Bits) {
    EXPECT_TRUE(isCountable({1 << 20, 1 << 20, (1 << 20) - 1}));
    EXPECT_FALSE(isCountable({1 << 20, 1 << 20, 1 << 21}));
    EXPECT_FALSE(isCountable({INT64_MAX, INT64_MAX, INT64_MAX}));
    EXPECT_FALSE(isCountable({3, -1, 3}));
    EXPECT_TRUE(isCountable({0, 5, 5}));
}

TEST(Size3, IsWrittenWithASeparator) {
    EXPECT_EQ(tamo::volume::text(tamo::volume::Size3{1, 20, 300}, " x "), "1 x 20 x 300");
}

} // namespace
