// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "GridGeometry.h"

#include "letterCase.h"

#include <cmath>
#include <map>

namespace tamo::volume {

Vector3 GridGeometry::position(Vector3 const& voxel) const {
    Vector3 position = origin;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (std::size_t i = 0; i < 3; ++i) {
            position[i] += voxel[axis] * spacing[axis] * axes[axis][i];
        }
    }
    return position;
}

bool GridGeometry::setSteps(std::array<Vector3, 3> const& steps) {
    Vector3 lengths{};
    std::array<Vector3, 3> directions{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        lengths[axis] = std::hypot(steps[axis][0], steps[axis][1], steps[axis][2]);
        if (!(lengths[axis] > 0) || !std::isfinite(lengths[axis])) {
            return false;
        }
        for (std::size_t i = 0; i < 3; ++i) {
            directions[axis][i] = steps[axis][i] / lengths[axis];
        }
    }
    // Directions of headers are rounded to a few digits; a third axis within a hair of the plane of the other two is
    // no axis.
    constexpr double kLeastDeterminant = 1e-4;
    if (std::abs(dot(cross(directions[0], directions[1]), directions[2])) < kLeastDeterminant) {
        return false;
    }
    spacing = lengths;
    axes = directions;
    isSpacingKnown = true;
    areAxesKnown = true;
    return true;
}

double millimetresPer(std::string const& unit) {
    // The micro sign and the Greek letter mu, in UTF-8; the micro sign in Latin 1; as a Java escape.
    static std::map<std::string, double> const kUnits{{"mm", 1},
                                                      {"millimeter", 1},
                                                      {"millimetre", 1},
                                                      {"millimeters", 1},
                                                      {"millimetres", 1},
                                                      {"um", 1e-3},
                                                      {"\xC2\xB5m", 1e-3},
                                                      {"\xCE\xBCm", 1e-3},
                                                      {"\xB5m", 1e-3},
                                                      {"\\u00b5m", 1e-3},
                                                      {"micron", 1e-3},
                                                      {"microns", 1e-3},
                                                      {"micrometer", 1e-3},
                                                      {"micrometre", 1e-3},
                                                      {"micrometers", 1e-3},
                                                      {"micrometres", 1e-3},
                                                      {"nm", 1e-6},
                                                      {"nanometer", 1e-6},
                                                      {"nanometre", 1e-6},
                                                      {"nanometers", 1e-6},
                                                      {"nanometres", 1e-6},
                                                      {"cm", 10},
                                                      {"centimeter", 10},
                                                      {"centimetre", 10},
                                                      {"m", 1000},
                                                      {"meter", 1000},
                                                      {"metre", 1000},
                                                      {"meters", 1000},
                                                      {"metres", 1000},
                                                      {"in", 25.4},
                                                      {"inch", 25.4},
                                                      {"inches", 25.4}};
    auto const found = kUnits.find(lowerCase(unit));
    return found == kUnits.end() ? 0 : found->second;
}

} // namespace tamo::volume
