// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "View.h"

#include <cmath>

namespace tamo::picture {

std::array<Vector3, 3> screenAxes(View view) {
    double const degree = std::acos(-1.0) / 180.0;
    double const sinA = std::sin(view.azimuth * degree);
    double const cosA = std::cos(view.azimuth * degree);
    double const sinE = std::sin(view.elevation * degree);
    double const cosE = std::cos(view.elevation * degree);
    return {{{-cosA, sinA, 0}, {-sinA * sinE, -cosA * sinE, cosE}, {sinA * cosE, cosA * cosE, sinE}}};
}

} // namespace tamo::picture
