// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../geometry/Vector3.h"

#include <array>
#include <string>

namespace tamo::volume {

/// Says where voxels lie in space, in millimetres; x leads towards a patient's left, y to the back, z to the top (LPS).
///
/// The centre of voxel (i, j, k) lies at origin + i spacing[0] axes[0] + j spacing[1] axes[1] + k spacing[2] axes[2].
/// What a file does not say is assumed: a spacing of 1, the origin (0, 0, 0), the axes of LPS, millimetres; or what its
/// format assumes.
struct GridGeometry {
    /// Distances of neighbouring voxels along the axes, positive.
    Vector3 spacing{1, 1, 1};
    /// The centre of the file's first voxel.
    Vector3 origin{0, 0, 0};
    /// Directions of the file's x, y and z, of length 1: the columns of the direction matrix. Linearly independent; at
    /// right angles unless the scanner's slices were not (gantry tilt) or the file is sheared.
    std::array<Vector3, 3> axes{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    bool isSpacingKnown = false;
    bool isOriginKnown = false;
    bool areAxesKnown = false;
    /// The unit in which the file gives lengths, as it spells it; empty where it names none. Lengths here are
    /// millimetres all the same.
    std::string fileUnit;

    /// Returns the centre of a voxel, given by its indices.
    [[nodiscard]] Vector3 position(Vector3 const& voxel) const;

    /// Takes spacing and axes from the steps between neighbouring voxels along x, y and z, and marks them as known.
    /// Returns false, and leaves all as it is, for steps that are not finite or not linearly independent.
    [[nodiscard]] bool setSteps(std::array<Vector3, 3> const& steps);
};

/// Turns a vector from RAS into LPS, or back.
inline Vector3 flippedToLps(Vector3 const& vector) { return {-vector[0], -vector[1], vector[2]}; }

/// Returns how many millimetres a unit of length is, by any of its usual names ("mm", "micron", "um", "inch", ...) in
/// any case and with any of the signs for micro, or 0 for a name that is none.
double millimetresPer(std::string const& unit);

} // namespace tamo::volume
