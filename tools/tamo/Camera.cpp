// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Camera.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace tamo::tool {

namespace {

constexpr double kMargin = 0.05;

// Returns how far along each screen axis one voxel leads along each volume axis: [screen][volume].
std::array<Vector3, 3> voxelSteps(Volume const& geometry, View view) {
    auto const screen = screenAxes(view);
    std::array<Vector3, 3> steps{};
    for (std::size_t s = 0; s < 3; ++s) {
        for (std::size_t v = 0; v < 3; ++v) {
            steps[s][v] = geometry.spacing[v] * dot(screen[s], geometry.axes[v]);
        }
    }
    return steps;
}

struct Extent {
    Vector3 low;
    Vector3 high;

    void include(Vector3 const& point) {
        for (std::size_t i = 0; i < 3; ++i) {
            low[i] = std::min(low[i], point[i]);
            high[i] = std::max(high[i], point[i]);
        }
    }
};

// Finds the foreground's extent on the screen. A row's extreme points are its two ends, whatever the view.
Extent screenExtent(BinaryVolume const& binary, std::array<Vector3, 3> const& steps, unsigned int step) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    Extent extent{{kInfinity, kInfinity, kInfinity}, {-kInfinity, -kInfinity, -kInfinity}};
    auto const rowVoxels = static_cast<std::size_t>(binary.size[0]);
    unsigned char const* row = binary.voxels.data();
    for (int z = 0; z < binary.size[2]; ++z) {
        for (int y = 0; y < binary.size[1]; ++y, row += rowVoxels) {
            auto const* const first = static_cast<unsigned char const*>(std::memchr(row, 1, rowVoxels));
            if (first == nullptr) {
                continue;
            }
            auto const* const last = static_cast<unsigned char const*>(memrchr(row, 1, rowVoxels));
            for (auto const* const end : {first, last}) {
                Vector3 const voxel{static_cast<double>(binary.first[0] + (end - row)),
                                    static_cast<double>(binary.first[1] + y), static_cast<double>(binary.first[2] + z)};
                extent.include({dot(steps[0], voxel), dot(steps[1], voxel), dot(steps[2], voxel)});
            }
        }
    }
    // The surface cuts the links between samples at their middle, so it reaches half a cell beyond a voxel.
    for (std::size_t i = 0; i < 3; ++i) {
        double const reach = 0.5 * step * (std::abs(steps[i][0]) + std::abs(steps[i][1]) + std::abs(steps[i][2]));
        extent.low[i] -= reach;
        extent.high[i] += reach;
    }
    return extent;
}

} // namespace

std::array<Vector3, 3> screenAxes(View view) {
    double const degree = std::acos(-1.0) / 180.0;
    double const sinA = std::sin(view.azimuth * degree);
    double const cosA = std::cos(view.azimuth * degree);
    double const sinE = std::sin(view.elevation * degree);
    double const cosE = std::cos(view.elevation * degree);
    return {{{-cosA, sinA, 0}, {-sinA * sinE, -cosA * sinE, cosE}, {sinA * cosE, cosA * cosE, sinE}}};
}

Camera frameForeground(BinaryVolume const& binary, Volume const& geometry, unsigned int step, View view,
                       PictureSize size) {
    auto const steps = voxelSteps(geometry, view);
    Extent const extent = screenExtent(binary, steps, step);
    Camera camera;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            camera.modelView[4 * column + row] = steps[row][column];
        }
        // The middle of what is seen becomes the origin: numbers stay small where volumes lie far out.
        camera.modelView[12 + row] = -(extent.low[row] + extent.high[row]) / 2;
    }
    camera.modelView[15] = 1;

    Vector3 half{};
    std::transform(extent.high.begin(), extent.high.end(), extent.low.begin(), half.begin(),
                   [](double high, double low) { return (high - low) / 2; });
    double const aspect = static_cast<double>(size.width) / size.height;
    double const halfHeight = std::max(half[1], half[0] / aspect) / (1 - 2 * kMargin);
    camera.projection = {
        1 / (halfHeight * aspect), 0, 0, 0, 0, 1 / halfHeight, 0, 0, 0, 0, -1 / (half[2] * 1.01), 0, 0, 0, 0, 1};
    return camera;
}

} // namespace tamo::tool
