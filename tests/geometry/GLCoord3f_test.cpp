// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLCoord3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

static_assert(std::is_trivially_copyable_v<GLCoord3f>);
static_assert(std::is_standard_layout_v<GLCoord3f>);
static_assert(sizeof(GLCoord3f) == 3 * sizeof(float));

namespace {

TEST(GLCoord3f, IsZeroByDefaultAndBraceInitialised) {
    constexpr GLCoord3f kZero;
    constexpr GLCoord3f kCoord{1, 2, 3};
    EXPECT_TRUE(kZero.x == 0 && kZero.y == 0 && kZero.z == 0);
    EXPECT_TRUE(kCoord.x == 1 && kCoord.y == 2 && kCoord.z == 3);
}

TEST(GLCoord3f, EqualsOnlyInAllComponents) {
    GLCoord3f const c{1, 2, 3};
    EXPECT_TRUE(c == (GLCoord3f{1, 2, 3}));
    EXPECT_FALSE(c != (GLCoord3f{1, 2, 3}));
    for (GLCoord3f const& other : {GLCoord3f{0, 2, 3}, GLCoord3f{1, 0, 3}, GLCoord3f{1, 2, 0}}) {
        EXPECT_FALSE(c == other);
        EXPECT_TRUE(c != other);
    }
    GLCoord3f const infinite{INFINITY, 0, -INFINITY};
    EXPECT_TRUE(infinite == (GLCoord3f{INFINITY, 0, -INFINITY}));
    EXPECT_TRUE(infinite != (GLCoord3f{INFINITY, 0, INFINITY}));
}

} // namespace
