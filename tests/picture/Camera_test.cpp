// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/Camera.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using tamo::Vector3;
using tamo::picture::Camera;
using tamo::picture::CameraFraming;
using tamo::picture::PictureSize;

constexpr std::array<Vector3, 3> kAxes{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

Vector3 transformed(std::array<double, 16> const& matrix, Vector3 const& point) {
    Vector3 image{};
    for (std::size_t row = 0; row < 3; ++row) {
        image[row] =
            matrix[row] * point[0] + matrix[4 + row] * point[1] + matrix[8 + row] * point[2] + matrix[12 + row];
    }
    return image;
}

// Returns where a voxel appears: -1 to 1 across and up.
Vector3 project(Camera const& camera, Vector3 const& voxel) {
    return transformed(camera.projection, transformed(camera.modelView, voxel));
}

TEST(Camera, FillsThePictureButForATwentiethAtEachSide) {
    CameraFraming framing(kAxes, {1, 1, 1}, {0, 0});
    framing.include({10, 20, 30});
    framing.include({14, 28, 34});
    Camera const camera = framing.place({200, 200}, /*reach=*/0);
    // From the front x leads left and z up.
    EXPECT_NEAR(project(camera, {10, 20, 30})[0], 0.9, 1e-12);
    EXPECT_NEAR(project(camera, {14, 20, 30})[0], -0.9, 1e-12);
    EXPECT_NEAR(project(camera, {10, 20, 30})[1], -0.9, 1e-12);
    EXPECT_NEAR(project(camera, {10, 20, 34})[1], 0.9, 1e-12);
}

TEST(Camera, FitsTheLongerSideWhateverTheShapeOfThePicture) {
    CameraFraming framing(kAxes, {1, 1, 1}, {0, 0});
    framing.include({0, 0, 0});
    framing.include({30, 0, 10});
    for (PictureSize const size : {PictureSize{300, 100}, {300, 300}, {100, 300}}) {
        Camera const camera = framing.place(size, /*reach=*/0);
        EXPECT_NEAR(project(camera, {30, 0, 10})[0], -0.9, 1e-12);
        EXPECT_NEAR(project(camera, {30, 0, 10})[1], 0.3 * size.aspect(), 1e-12);
    }
    EXPECT_NEAR(project(framing.place({900, 100}, /*reach=*/0), {30, 0, 10})[1], 0.9, 1e-12);
}

TEST(Camera, KeepsRoomForTheReachAroundAVoxel) {
    CameraFraming framing(kAxes, {2, 1, 1}, {0, 0});
    framing.include({5, 5, 5});
    Camera const camera = framing.place({100, 100}, /*reach=*/0.5);
    EXPECT_NEAR(project(camera, {4.5, 5, 5})[0], 0.9, 1e-12);
    EXPECT_NEAR(project(camera, {5, 5, 5.5})[1], 0.45, 1e-12);
}

TEST(Camera, FollowsAxesAndSpacing) {
    // x is stored towards the left, twice as far apart.
    CameraFraming framing({{{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {2, 1, 1}, {0, 0});
    framing.include({0, 0, 0});
    framing.include({10, 0, 10});
    Camera const camera = framing.place({100, 100}, /*reach=*/0);
    EXPECT_NEAR(project(camera, {10, 0, 0})[0], 0.9, 1e-12);
    EXPECT_NEAR(project(camera, {0, 0, 0})[1], -0.45, 1e-12);
}

TEST(Camera, SeesEveryVoxelInFrontAndBehind) {
    CameraFraming framing(kAxes, {1, 1, 1}, {30, 40});
    for (int i = 0; i < 8; ++i) {
        framing.include({10.0 * (i & 1), 20.0 * (i >> 1 & 1), 30.0 * (i >> 2 & 1)});
    }
    Camera const camera = framing.place({100, 100}, /*reach=*/0.5);
    for (int i = 0; i < 8; ++i) {
        for (double const position : project(camera, {10.0 * (i & 1), 20.0 * (i >> 1 & 1), 30.0 * (i >> 2 & 1)})) {
            EXPECT_LT(std::abs(position), 1);
        }
    }
}

} // namespace
