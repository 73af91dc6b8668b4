// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NiftiGeometry.h"

#include <cmath>
#include <string>

namespace tamo::volume {

namespace {

// Takes origin, spacing and axes from a matrix; false for one that does not span space.
bool setMatrix(GridGeometry& geometry, NiftiMatrix const& matrix, double unit) {
    Vector3 const offset{matrix[0][3] * unit, matrix[1][3] * unit, matrix[2][3] * unit};
    std::array<Vector3, 3> steps{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        steps[axis] = flippedToLps({matrix[0][axis] * unit, matrix[1][axis] * unit, matrix[2][axis] * unit});
    }
    if (!std::isfinite(offset[0]) || !std::isfinite(offset[1]) || !std::isfinite(offset[2]) ||
        !geometry.setSteps(steps)) {
        return false;
    }
    geometry.origin = flippedToLps(offset);
    geometry.isOriginKnown = true;
    return true;
}

constexpr char const* kNoDistances = "pixdim holds no distances; a spacing of 1 is assumed";

// Takes the spacing from pixdim, where no matrix gives it. Analyze files have negative ones for reversed axes, of which
// programs do not agree what they mean.
void setSpacing(VolumeHeader& volume, NiftiSpace const& space) {
    Vector3 spacing{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        spacing[axis] = std::abs(space.pixdim[axis]) * space.millimetresPerUnit;
        if (!(spacing[axis] > 0) || !std::isfinite(spacing[axis])) {
            volume.notes.emplace_back(kNoDistances);
            return;
        }
    }
    volume.geometry.spacing = spacing;
    volume.geometry.isSpacingKnown = true;
}

// Notes that the sform and pixdim, which should agree, do not.
void compareSpacing(VolumeHeader& volume, NiftiSpace const& space) {
    constexpr double kMostDifference = 1e-3;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double const length = volume.geometry.spacing[axis];
        double const other = std::abs(space.pixdim[axis]) * space.millimetresPerUnit;
        if (!(std::abs(other - length) <= kMostDifference * length)) {
            volume.notes.emplace_back("the distances in pixdim are not those of the sform, which are taken");
            return;
        }
    }
}

bool useSform(VolumeHeader& volume, NiftiSpace const& space) {
    if (!space.sform) {
        return false;
    }
    if (!setMatrix(volume.geometry, *space.sform, space.millimetresPerUnit)) {
        volume.notes.emplace_back("the sform is singular or not finite and was left out");
        return false;
    }
    compareSpacing(volume, space);
    return true;
}

bool useQform(VolumeHeader& volume, NiftiSpace const& space) {
    if (!space.qform) {
        return false;
    }
    if (!setMatrix(volume.geometry, *space.qform, space.millimetresPerUnit)) {
        volume.notes.emplace_back("the qform is not finite and was left out");
        return false;
    }
    // Its lengths are those of pixdim, and 1 for those of 0.
    if (space.pixdim[0] == 0 || space.pixdim[1] == 0 || space.pixdim[2] == 0) {
        volume.geometry.isSpacingKnown = false;
        volume.notes.emplace_back(kNoDistances);
    }
    return true;
}

} // namespace

void setNiftiGeometry(VolumeHeader& volume, NiftiSpace const& space) {
    if (!useSform(volume, space) && !useQform(volume, space)) {
        setSpacing(volume, space);
        volume.notes.emplace_back("the header states neither origin nor orientation; the axes of LPS are assumed");
    }
}

} // namespace tamo::volume
