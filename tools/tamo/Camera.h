// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "volume/BinaryVolume.h"
#include "volume/Volume.h"

#include <array>

namespace tamo::tool {

/// Says from where a surface is looked at, in degrees. Azimuth 0 looks from the end of the y axis (a patient's front),
/// 90 from the end of the x axis (the right side); elevation 90 looks from above, the end of the z axis.
struct View {
    double azimuth;
    double elevation;
};

struct PictureSize {
    int width;
    int height;
};

/// Takes voxel coordinates to the picture: a parallel projection. Both matrices in OpenGL's column order.
struct Camera {
    std::array<double, 16> modelView{};
    std::array<double, 16> projection{};
};

/// Returns the rows of the turn from space to the screen: right, up, towards the viewer.
std::array<Vector3, 3> screenAxes(View view);

/// Places a camera so that the surface of the foreground, sampled every `step` voxels, fills the picture but for a
/// margin. There has to be foreground.
Camera frameForeground(BinaryVolume const& binary, Volume const& geometry, unsigned int step, View view,
                       PictureSize size);

} // namespace tamo::tool
