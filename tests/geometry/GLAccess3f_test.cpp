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
static_assert(std::is_invocable_v<tamo::test::SubtractValue, GLAccess3f&>);

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

TEST(GLAccess3f, AddsSubtractsAndScalesInPlace) {
    Floats data = {1, 2, 3, 10, 20, 40};
    GLAccess3f first(data.data());
    GLAccess3f const second(data.data() + 3);
    EXPECT_EQ(&(first += second), &first);
    EXPECT_EQ(data, (Floats{11, 22, 43, 10, 20, 40}));
    EXPECT_EQ(&(first *= 2), &first);
    EXPECT_EQ(data, (Floats{22, 44, 86, 10, 20, 40}));
    EXPECT_EQ(&(first -= second), &first);
    EXPECT_EQ(data, (Floats{12, 24, 46, 10, 20, 40}));
}

// Views of data[1] to data[3] and of data[0] to data[2], or the other way round.
TEST(GLAccess3f, RightSideThatOverlapsIsReadAsAWhole) {
    using Write = void (*)(GLAccess3f, GLAccess3f);
    struct Law {
        Write write;
        Floats ahead;
        Floats behind;
    };
    Floats const start = {1, 2, 4, 8, 16, 32};
    Law const laws[] = {
        {[](GLAccess3f to, GLAccess3f from) { to = from; }, {1, 1, 2, 4, 16, 32}, {2, 4, 8, 8, 16, 32}},
        {[](GLAccess3f to, GLAccess3f from) { to += from; }, {1, 3, 6, 12, 16, 32}, {3, 6, 12, 8, 16, 32}},
        {[](GLAccess3f to, GLAccess3f from) { to -= from; }, {1, 1, 2, 4, 16, 32}, {-1, -2, -4, 8, 16, 32}},
    };
    for (Law const& law : laws) {
        Floats data = start;
        law.write(GLAccess3f(data.data() + 1), GLAccess3f(data.data()));
        EXPECT_EQ(data, law.ahead);
        data = start;
        law.write(GLAccess3f(data.data()), GLAccess3f(data.data() + 1));
        EXPECT_EQ(data, law.behind);
    }
}

TEST(GLAccess3f, FactorThatIsAViewedFloatIsReadOnce) {
    Floats data = {3, 5, 7, 4, 5, 6};
    GLAccess3f view(data.data());
    view *= view.x();
    EXPECT_EQ(data, (Floats{9, 15, 21, 4, 5, 6}));
}

TEST(GLAccess3f, OnBothSidesDoublesAndCancels) {
    Floats data = {3, 5, 7, 4, 5, 6};
    GLAccess3f view(data.data());
    GLAccess3f const same = view;
    view += same;
    EXPECT_EQ(data, (Floats{6, 10, 14, 4, 5, 6}));
    view -= same;
    EXPECT_EQ(data, (Floats{0, 0, 0, 4, 5, 6}));
}

} // namespace
