// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Progress.h"
#include "VolumeFile.h"
#include "VolumeSource.h"

#include <memory>
#include <string>

namespace tamo::volume {

/// Opens a file or folder of any supported format, chosen by its name, or by its first bytes where the name says
/// nothing, and reads its header. The header has at least two voxels a side, one number per voxel, and a geometry that
/// is finite. Throws `Error` for all else, `Cancelled` where `progress` asks for it, which is told of the opening
/// alone: reading begins at 0 again. Memory grows with the number of slices or frames, not with that of the voxels; but
/// VTK's XML and deflated DICOM are expanded as a whole. Several threads may open files at once.
std::unique_ptr<VolumeFile> openVolume(VolumeSource const& source, Progress const& progress);

/// Returns one line that names all formats, for people.
std::string supportedFormats();

} // namespace tamo::volume
