// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLAccess3f.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <type_traits>

static_assert(sizeof(GLAccess3f) == sizeof(float*));
static_assert(!std::is_assignable_v<GLAccess3f const&, GLVec3f>);

namespace {

using Floats = std::array<float, 6>;

TEST(GLAccess3f, ReadsThreeConsecutiveFloats) {
    Floats data = {1, 2, 3, 4, 5, 6};
    GLAccess3f view(data.data() + 1);
    GLAccess3f const same = view;
    EXPECT_EQ(view.x(), 2);
    EXPECT_EQ(view.y(), 3);
    EXPECT_EQ(view.z(), 4);
    EXPECT_EQ(GLVec3f(same), (GLVec3f{2, 3, 4}));
    view.z() = 7;
    EXPECT_EQ(same.z(), 7);
}

TEST(GLAccess3f, AssignmentWritesThroughAndTouchesNothingElse) {
    Floats data = {1, 2, 3, 4, 5, 6};
    GLAccess3f(data.data() + 1) = GLVec3f{7, 8, 9};
    EXPECT_EQ(data, (Floats{1, 7, 8, 9, 5, 6}));
}

TEST(GLAccess3f, AssignmentFromAViewCopiesFloatsAndKeepsTheView) {
    Floats data = {1, 2, 3, 4, 5, 6};
    GLAccess3f first(data.data());
    GLAccess3f const second(data.data() + 3);
    first = second;
    EXPECT_EQ(data, (Floats{4, 5, 6, 4, 5, 6}));
    first = GLVec3f{0, 0, 0};
    EXPECT_EQ(data, (Floats{0, 0, 0, 4, 5, 6}));
}

TEST(GLAccess3f, OverlappingViewsAreCopiedAsAWhole) {
    Floats data = {1, 2, 3, 4, 5, 6};
    GLAccess3f target(data.data() + 1);
    target = GLAccess3f(data.data());
    EXPECT_EQ(data, (Floats{1, 1, 2, 3, 5, 6}));
}

TEST(GLAccess3f, AddsAndScalesInPlace) {
    Floats data = {1, 2, 3, 10, 20, 40};
    GLAccess3f first(data.data());
    first += GLAccess3f(data.data() + 3);
    EXPECT_EQ(data, (Floats{11, 22, 43, 10, 20, 40}));
    first *= 2;
    EXPECT_EQ(data, (Floats{22, 44, 86, 10, 20, 40}));
}

TEST(GLAccess3f, SumAndDifferenceAreValues) {
    Floats data = {1, 2, 3, 10, 20, 40};
    GLAccess3f const a(data.data());
    GLAccess3f const b(data.data() + 3);
    static_assert(std::is_same_v<decltype(a - b), GLVec3f>);
    static_assert(std::is_same_v<decltype(a + b), GLVec3f>);
    EXPECT_EQ(a - b, (GLVec3f{-9, -18, -37}));
    EXPECT_EQ(a + b, (GLVec3f{11, 22, 43}));
    EXPECT_EQ(data, (Floats{1, 2, 3, 10, 20, 40}));
}

TEST(GLAccess3f, EqualityIsExactInEveryComponent) {
    Floats data = {1, 2, 3, 1, 2, 3};
    GLAccess3f const a(data.data());
    GLAccess3f const b(data.data() + 3);
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

TEST(GLAccess3f, SquaredDistanceIsSymmetricAndNotRooted) {
    Floats data = {1, 2, 3, 3, 5, 9};
    GLAccess3f const a(data.data());
    GLAccess3f const b(data.data() + 3);
    EXPECT_EQ(a.squaredDistance(b), 49);
    EXPECT_EQ(b.squaredDistance(a), 49);
    EXPECT_EQ(a.squaredDistance(a), 0);
}

} // namespace
