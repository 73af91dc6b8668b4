// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/neighborhood/GLUnitCube.h>

#include "support/WritableView.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

static_assert(!std::is_copy_constructible_v<GLUnitCube>);
static_assert(!std::is_copy_assignable_v<GLUnitCube>);
static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<GLUnitCube const&>().vertex(0))>);

namespace {

TEST(GLUnitCube, CornerBitsAreItsCoordinates) {
    GLUnitCube const cube;
    unsigned int corner = 0;
    for (float const z : {0.0F, 1.0F}) {
        for (float const y : {0.0F, 1.0F}) {
            for (float const x : {0.0F, 1.0F}) {
                EXPECT_EQ(cube.vertex(corner++), (GLVec3f{x, y, z}));
            }
        }
    }
}

TEST(GLUnitCube, AccessorsViewItsOwnFloats) {
    GLUnitCube const one;
    GLUnitCube const other;
    EXPECT_EQ(&one.vertex(3), &one.vertex(3));
    EXPECT_NE(&one.vertex(3), &other.vertex(3));
}

TEST(GLUnitCubeDeathTest, CornerEightStopsTheProgram) {
    GLUnitCube const cube;
    EXPECT_DEATH(static_cast<void>(cube.vertex(8)), "");
}

} // namespace
