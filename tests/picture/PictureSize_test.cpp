// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/PictureSize.h"

#include <gtest/gtest.h>

namespace {

using tamo::picture::PictureSize;

TEST(PictureSize, AspectIsWidthPerHeight) {
    EXPECT_EQ((PictureSize{300, 200}).aspect(), 1.5);
    EXPECT_EQ((PictureSize{1, 4}).aspect(), 0.25);
}

} // namespace
