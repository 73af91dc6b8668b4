// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/View.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using tamo::dot;
using tamo::Vector3;
using tamo::picture::screenAxes;

void expectNear(Vector3 const& found, Vector3 const& expected) {
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(found[i], expected[i], 1e-15) << "along axis " << i;
    }
}

TEST(View, FromTheFrontHasTheRightSideOnTheLeftAndTheTopUp) {
    auto const [right, up, nearer] = screenAxes({0, 0});
    expectNear(right, {-1, 0, 0});
    expectNear(up, {0, 0, 1});
    expectNear(nearer, {0, 1, 0});
}

TEST(View, FromTheRightSideHasTheFrontOnTheRight) {
    auto const [right, up, nearer] = screenAxes({90, 0});
    expectNear(right, {0, 1, 0});
    expectNear(up, {0, 0, 1});
    expectNear(nearer, {1, 0, 0});
}

TEST(View, FromAboveLooksDownTheZAxis) { expectNear(screenAxes({0, 90})[2], {0, 0, 1}); }

TEST(View, AxesAreARightHandedFrameFromEverywhere) {
    for (double azimuth = -360; azimuth <= 360; azimuth += 37) {
        for (double elevation = -90; elevation <= 90; elevation += 15) {
            auto const [right, up, nearer] = screenAxes({azimuth, elevation});
            EXPECT_NEAR(dot(right, right), 1, 1e-15);
            EXPECT_NEAR(dot(up, up), 1, 1e-15);
            EXPECT_NEAR(dot(right, up), 0, 1e-15);
            expectNear(tamo::cross(right, up), nearer);
        }
    }
}

} // namespace
