// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/Picture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using tamo::picture::Picture;

TEST(Picture, IsBlackAtFirstAndHasThreeBytesPerPixel) {
    Picture const picture({5, 4});
    EXPECT_EQ(picture.pixels, std::vector<unsigned char>(60, 0));
    EXPECT_EQ(picture.size.width, 5);
    EXPECT_EQ(picture.size.height, 4);
}

TEST(Picture, TakesAPartInItsColumnsAndKeepsTheOthers) {
    Picture picture({4, 2});
    std::fill(picture.pixels.begin(), picture.pixels.end(), static_cast<unsigned char>(9));
    Picture part({2, 2});
    part.pixels = {1, 2, 3, 4, 5, 6, 11, 12, 13, 14, 15, 16};
    picture.place(part, 1);
    EXPECT_EQ(picture.pixels, (std::vector<unsigned char>{9, 9, 9, 1,  2,  3,  4,  5,  6,  9, 9, 9,
                                                          9, 9, 9, 11, 12, 13, 14, 15, 16, 9, 9, 9}));
}

} // namespace
