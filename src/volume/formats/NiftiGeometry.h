// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../VolumeHeader.h"

#include <array>
#include <optional>

namespace tamo::volume {

/// Where voxel (i, j, k) lies, in RAS: the products of the rows with (i, j, k, 1).
using NiftiMatrix = std::array<std::array<double, 4>, 3>;

/// All that a NIfTI header says of space, in the unit of the file.
struct NiftiSpace {
    /// Set where its code says so.
    std::optional<NiftiMatrix> sform;
    std::optional<NiftiMatrix> qform;
    Vector3 pixdim{};
    double millimetresPerUnit = 1;
};

/// Sets the geometry from the sform, else from the qform: lengths and directions alike, so that a shear is kept.
/// Without a matrix that spans space only the spacing is known. Notes what is left out or does not agree.
void setNiftiGeometry(VolumeHeader& volume, NiftiSpace const& space);

} // namespace tamo::volume
