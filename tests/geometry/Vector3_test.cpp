// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../../src/geometry/Vector3.h"

#include <gtest/gtest.h>

namespace {

using tamo::Vector3;

TEST(Vector3, DotIsTheSumOfTheProductsPerAxis) {
    EXPECT_EQ(tamo::dot({1, 2, 3}, {4, 5, 6}), 32);
    EXPECT_EQ(tamo::dot({1, 0, 0}, {0, 1, 0}), 0);
}

TEST(Vector3, CrossIsPerpendicularToBothAndTurnsRight) {
    EXPECT_EQ(tamo::cross({1, 0, 0}, {0, 1, 0}), (Vector3{0, 0, 1}));
    EXPECT_EQ(tamo::cross({0, 1, 0}, {0, 0, 1}), (Vector3{1, 0, 0}));
    EXPECT_EQ(tamo::cross({0, 0, 1}, {1, 0, 0}), (Vector3{0, 1, 0}));
    Vector3 const a{1, 2, 3};
    Vector3 const b{-4, 5, 7};
    EXPECT_EQ(tamo::dot(tamo::cross(a, b), a), 0);
    EXPECT_EQ(tamo::dot(tamo::cross(a, b), b), 0);
}

} // namespace
