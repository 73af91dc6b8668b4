// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Camera.h"

#include <algorithm>
#include <cmath>

namespace tamo::picture {

namespace {

constexpr double kMargin = 0.05;

} // namespace

CameraFraming::CameraFraming(std::array<Vector3, 3> const& axes, Vector3 const& spacing, View view) {
    auto const screen = screenAxes(view);
    for (std::size_t s = 0; s < 3; ++s) {
        for (std::size_t v = 0; v < 3; ++v) {
            _steps[s][v] = spacing[v] * dot(screen[s], axes[v]);
        }
    }
}

void CameraFraming::include(Vector3 const& voxel) {
    for (std::size_t i = 0; i < 3; ++i) {
        double const position = dot(_steps[i], voxel);
        _low[i] = std::min(_low[i], position);
        _high[i] = std::max(_high[i], position);
    }
}

Camera CameraFraming::place(PictureSize size, double reach) const {
    Camera camera;
    Vector3 half{};
    for (std::size_t row = 0; row < 3; ++row) {
        double const beyond = reach * (std::abs(_steps[row][0]) + std::abs(_steps[row][1]) + std::abs(_steps[row][2]));
        double const low = _low[row] - beyond;
        double const high = _high[row] + beyond;
        half[row] = (high - low) / 2;
        for (std::size_t column = 0; column < 3; ++column) {
            camera.modelView[4 * column + row] = _steps[row][column];
        }
        // The middle of what is seen becomes the origin: numbers stay small where volumes lie far out.
        camera.modelView[12 + row] = -(low + high) / 2;
    }
    camera.modelView[15] = 1;

    double const halfHeight = std::max(half[1], half[0] / size.aspect()) / (1 - 2 * kMargin);
    camera.projection = {
        1 / (halfHeight * size.aspect()), 0, 0, 0, 0, 1 / halfHeight, 0, 0, 0, 0, -1 / (half[2] * 1.01), 0, 0, 0, 0, 1};
    return camera;
}

} // namespace tamo::picture
