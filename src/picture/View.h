// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../geometry/Vector3.h"

#include <array>

namespace tamo::picture {

/// Says from where a surface is looked at, in degrees. Azimuth 0 looks from the end of the y axis (a patient's front),
/// 90 from the end of the x axis (the right side); elevation 90 looks from above, the end of the z axis.
struct View {
    double azimuth;
    double elevation;
};

/// Returns the rows of the turn from space to the screen: right, up, towards the viewer.
std::array<Vector3, 3> screenAxes(View view);

} // namespace tamo::picture
