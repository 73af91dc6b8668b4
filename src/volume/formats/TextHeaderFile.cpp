// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TextHeaderFile.h"

#include "../Error.h"

#include <algorithm>
#include <cmath>

namespace tamo::volume {

std::unique_ptr<VolumeFile> openVoxelFiles(VolumeSource const& source, VolumeHeader header, VoxelFiles voxels) {
    Vector3 const& origin = header.geometry.origin;
    if (!std::all_of(origin.begin(), origin.end(), [](double x) { return std::isfinite(x); })) {
        throw Error(source.path, "expected a finite origin in the header");
    }
    voxels.rows.size = header.size;
    voxels.rows.type = header.type;
    voxels.frames = header.frames;
    voxels.frame = header.frame;
    voxels.check();
    return std::make_unique<TextHeaderFile>(source.path, std::move(header), std::move(voxels));
}

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
