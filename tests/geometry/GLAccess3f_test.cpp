// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLAccess3f.h>

#include "support/WritableView.h"

#include <gtest/gtest.h>

#include <array>
#include <type_traits>

// Reading, comparing and measuring are those of GLConstAccess3f.
static_assert(sizeof(GLAccess3f) == sizeof(float*));
static_assert(!std::is_assignable_v<GLAccess3f const&, GLVec3f>);
static_assert(tamo::test::kIsCopyWritable<GLAccess3f const&>);

namespace {

using Floats = std::array<float, 6>;

TEST(GLAccess3f, ReadsAndWritesEachComponent) {
    Floats data = {1, 2, 3, 4, 5, 6};
    GLAccess3f view(data.data() + 1);
    GLAccess3f const same = view;
    view.x() = 7;
    view.y() = 8;
    view.z() = 9;
    EXPECT_EQ(data, (Floats{1, 7, 8, 9, 5, 6}));
    EXPECT_EQ(GLVec3f(same), (GLVec3f{7, 8, 9}));
    EXPECT_EQ(same.x(), 7);
    EXPECT_EQ(same.y(), 8);
    EXPECT_EQ(same.z(), 9);
}

TEST(GLAccess3f, AssignmentWritesThroughAndTouchesNothingElse) {
    Floats data = {1, 2, 3, 4, 5, 6};
    GLAccess3f(data.data() + 1) = GLVec3f{7, 8, 9};
    EXPECT_EQ(data, (Floats{1, 7, 8, 9, 5, 6}));
}

TEST(GLAccess3f, AssignmentFromAViewCopiesFloatsAndKeepsTheView) {
    Floats data = {1, 2, 3, 4, 5, 6};
    Floats const others = {7, 8, 9};
    GLAccess3f first(data.data());
    GLAccess3f const second(data.data() + 3);
    first = second;
    EXPECT_EQ(data, (Floats{4, 5, 6, 4, 5, 6}));
    first = GLConstAccess3f(others.data());
    EXPECT_EQ(data, (Floats{7, 8, 9, 4, 5, 6}));
}

TEST(GLAccess3f, AddsAndScalesInPlace) {
    Floats data = {1, 2, 3, 10, 20, 40};
    GLAccess3f first(data.data());
    GLAccess3f const second(data.data() + 3);
    EXPECT_EQ(&(first += second), &first);
    EXPECT_EQ(data, (Floats{11, 22, 43, 10, 20, 40}));
    EXPECT_EQ(&(first *= 2), &first);
    EXPECT_EQ(data, (Floats{22, 44, 86, 10, 20, 40}));
}

} // namespace
