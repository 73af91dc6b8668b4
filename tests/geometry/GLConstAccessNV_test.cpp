// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLConstAccessNV.h>

#include "support/WritableView.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<GLConstAccessNV&>().vertex())>);
static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<GLConstAccessNV&>().normal())>);

namespace {

TEST(GLConstAccessNV, TakesThePositionFirstAndTheNormalSecond) {
    std::array<float, 6> const record = {1, 2, 3, 4, 5, 6};
    GLConstAccessNV const view(record.data() + 3, record.data());
    GLConstAccessNV const same = view;
    EXPECT_EQ(same.vertex(), (GLVec3f{4, 5, 6}));
    EXPECT_EQ(same.normal(), (GLVec3f{1, 2, 3}));
}

} // namespace
