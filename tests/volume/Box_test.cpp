// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/Box.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::Box;

TEST(Box, LiesInsideAVolumeWithBothItsEnds) {
    EXPECT_TRUE(isInside(Box{{0, 0, 0}, {4, 3, 2}}, {5, 4, 3}));
    EXPECT_FALSE(isInside(Box{{0, 0, 0}, {5, 3, 2}}, {5, 4, 3}));
    EXPECT_FALSE(isInside(Box{{-1, 0, 0}, {4, 3, 2}}, {5, 4, 3}));
    EXPECT_FALSE(isInside(Box{{0, 2, 0}, {4, 1, 2}}, {5, 4, 3}));
}

TEST(Box, OfTheWholeHasTheSizeOfTheVolume) {
    EXPECT_EQ(tamo::volume::wholeOf({5, 4, 3}).sides(), (tamo::volume::Size3{5, 4, 3}));
    EXPECT_TRUE(isInside(tamo::volume::wholeOf({5, 4, 3}), {5, 4, 3}));
}

} // namespace
