// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLAccess3f.h>
#include <tamo/geometry/GLConstAccess3f.h>

#include "support/WritableView.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

static_assert(sizeof(GLConstAccess3f) == sizeof(float*));
static_assert(!tamo::test::kIsCopyWritable<GLConstAccess3f>);
static_assert(!tamo::test::kIsCopyWritable<GLConstAccess3f const&>);
// A writable view serves as a read-only one, never the other way round.
static_assert(std::is_convertible_v<GLAccess3f, GLConstAccess3f>);
static_assert(!std::is_constructible_v<GLAccess3f, GLConstAccess3f>);
static_assert(!std::is_constructible_v<GLAccess3f, float const*>);

namespace {

using Floats = std::array<float, 6>;

TEST(GLConstAccess3f, ReadsThreeConsecutiveFloatsAsTheyAre) {
    Floats data = {1, 2, 3, 4, 5, 6};
    GLConstAccess3f const view(data.data() + 1);
    GLConstAccess3f const same = view;
    EXPECT_EQ(view.x(), 2);
    EXPECT_EQ(view.y(), 3);
    EXPECT_EQ(view.z(), 4);
    EXPECT_EQ(GLVec3f(same), (GLVec3f{2, 3, 4}));
    data[3] = 7;
    EXPECT_EQ(same.z(), 7);
}

TEST(GLConstAccess3f, OfAWritableViewSeesWhatThatWrites) {
    Floats data = {1, 2, 3, 4, 5, 6};
    GLAccess3f writable(data.data());
    GLConstAccess3f const view = writable;
    writable = GLVec3f{7, 8, 9};
    EXPECT_EQ(view, (GLVec3f{7, 8, 9}));
    EXPECT_TRUE(view == writable && writable == view);
}

TEST(GLConstAccess3f, SumAndDifferenceAreValues) {
    Floats const data = {1, 2, 3, 10, 20, 40};
    GLConstAccess3f const a(data.data());
    GLConstAccess3f const b(data.data() + 3);
    static_assert(std::is_same_v<decltype(a - b), GLVec3f>);
    static_assert(std::is_same_v<decltype(a + b), GLVec3f>);
    EXPECT_EQ(a - b, (GLVec3f{-9, -18, -37}));
    EXPECT_EQ(a + b, (GLVec3f{11, 22, 43}));
}

TEST(GLConstAccess3f, EqualityIsExactInEveryComponent) {
    Floats data = {1, 2, 3, 1, 2, 3};
    GLConstAccess3f const a(data.data());
    GLConstAccess3f const b(data.data() + 3);
    EXPECT_TRUE(a == b && a == (GLVec3f{1, 2, 3}));
    EXPECT_FALSE(a != b || a != (GLVec3f{1, 2, 3}));
    for (std::size_t i = 3; i < 6; ++i) {
        float const before = data[i];
        for (float const other : {std::nextafterf(before, 9), std::nextafterf(before, -9), NAN}) {
            data[i] = other;
            EXPECT_FALSE(a == b || a == GLVec3f(b));
            EXPECT_TRUE(a != b && a != GLVec3f(b));
        }
        data[i] = before;
    }
}

TEST(GLConstAccess3f, InfinitiesOfTheSameSignAreEqual) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (std::size_t i = 0; i < 3; ++i) {
        Floats data = {1, 2, 3, 1, 2, 3};
        GLConstAccess3f const a(data.data());
        GLConstAccess3f const b(data.data() + 3);
        data[i] = data[i + 3] = kInfinity;
        EXPECT_TRUE(a == b && a == GLVec3f(b));
        EXPECT_FALSE(a != b || a != GLVec3f(b));
        data[i + 3] = -kInfinity;
        EXPECT_FALSE(a == b || a == GLVec3f(b));
        EXPECT_TRUE(a != b && a != GLVec3f(b));
    }
}

TEST(GLConstAccess3f, ZerosOfEitherSignAreEqual) {
    Floats const data = {0, -0.0F, 0, -0.0F, 0, -0.0F};
    EXPECT_EQ(GLConstAccess3f(data.data()), GLConstAccess3f(data.data() + 3));
}

TEST(GLConstAccess3f, SquaredDistanceIsSymmetricAndNotRooted) {
    Floats const data = {1, 2, 3, 3, 5, 9};
    GLConstAccess3f const a(data.data());
    GLConstAccess3f const b(data.data() + 3);
    EXPECT_EQ(a.squaredDistance(b), 49);
    EXPECT_EQ(b.squaredDistance(a), 49);
    EXPECT_EQ(a.squaredDistance(a), 0);
}

} // namespace
