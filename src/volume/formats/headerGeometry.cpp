// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "headerGeometry.h"

#include <cmath>

namespace tamo::volume {

void setSpacing(VolumeHeader& header, Vector3 const& spacing) {
    GridGeometry& geometry = header.geometry;
    geometry.isSpacingKnown = true;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        geometry.spacing[axis] = std::abs(spacing[axis]);
        if (spacing[axis] < 0) {
            for (double& x : geometry.axes[axis]) {
                // No zero becomes a negative one.
                x = 0 - x;
            }
            header.notes.push_back("the spacing along " + std::string(1, "xyz"[axis]) +
                                   " is negative: the axis was turned round");
        }
    }
}

double millimetresOf(VolumeHeader& header, std::string const& unit) {
    if (unit.empty()) {
        return 1;
    }
    header.geometry.fileUnit = unit;
    double const millimetres = millimetresPer(unit);
    if (millimetres == 0) {
        header.notes.push_back("the unit of length \"" + unit + "\" is not known: millimetres are assumed");
    }
    return millimetres == 0 ? 1 : millimetres;
}

} // namespace tamo::volume
