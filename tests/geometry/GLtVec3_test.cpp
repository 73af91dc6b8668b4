// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLtVec3.h>

#include <gtest/gtest.h>

#include <type_traits>

static_assert(std::is_trivially_copyable_v<GLtVec3<int>>);
static_assert(std::is_standard_layout_v<GLtVec3<int>>);
static_assert(sizeof(GLtVec3<int>) == 3 * sizeof(int));
static_assert(sizeof(GLtVec3<double>) == 3 * sizeof(double));

namespace {

TEST(GLtVec3, IsZeroByDefaultAndBraceInitialised) {
    constexpr GLtVec3<int> kZero;
    constexpr GLtVec3<int> kTriple{1, -2, 3};
    EXPECT_TRUE(kZero.x == 0 && kZero.y == 0 && kZero.z == 0);
    EXPECT_TRUE(kTriple.x == 1 && kTriple.y == -2 && kTriple.z == 3);
}

TEST(GLtVec3, EqualsOnlyInAllComponents) {
    GLtVec3<int> const v{1, 2, 3};
    EXPECT_TRUE(v == (GLtVec3<int>{1, 2, 3}));
    EXPECT_FALSE(v != (GLtVec3<int>{1, 2, 3}));
    for (GLtVec3<int> const& other : {GLtVec3<int>{0, 2, 3}, GLtVec3<int>{1, 0, 3}, GLtVec3<int>{1, 2, 0}}) {
        EXPECT_FALSE(v == other);
        EXPECT_TRUE(v != other);
    }
}

} // namespace
