// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLAccessNV.h>

#include "support/WritableView.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<GLAccessNV const&>().vertex())>);
static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<GLAccessNV const&>().normal())>);

namespace {

TEST(GLAccessNV, TakesThePositionFirstAndTheNormalSecond) {
    std::array<float, 6> record = {1, 2, 3, 4, 5, 6};
    GLAccessNV view(record.data() + 3, record.data());
    GLAccessNV const same = view;
    EXPECT_EQ(same.vertex(), (GLVec3f{4, 5, 6}));
    EXPECT_EQ(same.normal(), (GLVec3f{1, 2, 3}));
    view.vertex() = GLVec3f{7, 8, 9};
    view.normal() = GLVec3f{-1, -2, -3};
    EXPECT_EQ(record, (std::array<float, 6>{-1, -2, -3, 7, 8, 9}));
}

} // namespace
