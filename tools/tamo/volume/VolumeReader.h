// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../terminal/Progress.h"
#include "Volume.h"
#include "VolumeSource.h"

namespace tamo::tool {

/// Reads a volume of any supported format, chosen by the file's name. Throws `UserError` for everything that is not a
/// complete volume of at least two voxels a side with one scalar per voxel.
Volume readVolume(VolumeSource const& source, Progress& progress);

} // namespace tamo::tool
