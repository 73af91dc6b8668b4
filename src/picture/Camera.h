// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "PictureSize.h"
#include "View.h"

#include "../geometry/Vector3.h"

#include <array>
#include <limits>

namespace tamo::picture {

/// Takes voxel coordinates to the picture: a parallel projection. Both matrices in OpenGL's column order.
struct Camera {
    std::array<double, 16> modelView{};
    std::array<double, 16> projection{};
};

/// Places a camera so that it sees all voxels that it was told of.
class CameraFraming {
  public:
    /// Voxels lie `spacing` apart along `axes`, three directions of length 1.
    CameraFraming(std::array<Vector3, 3> const& axes, Vector3 const& spacing, View view);

    /// Takes in a voxel, given by its indices along the three axes.
    void include(Vector3 const& voxel);

    /// Returns the camera to which the voxels taken in, and all within `reach` voxels of them along each axis, fill a
    /// picture but for a margin. At least one voxel has to be taken in.
    [[nodiscard]] Camera place(PictureSize size, double reach) const;

  private:
    static constexpr double kInfinity = std::numeric_limits<double>::infinity();

    /// How far along each screen axis one voxel leads along each volume axis: [screen][volume].
    std::array<Vector3, 3> _steps{};
    /// The voxels' extent along the screen axes.
    Vector3 _low{kInfinity, kInfinity, kInfinity};
    Vector3 _high{-kInfinity, -kInfinity, -kInfinity};
};

} // namespace tamo::picture
