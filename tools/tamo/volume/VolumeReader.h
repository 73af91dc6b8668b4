// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../terminal/Progress.h"
#include "Volume.h"
#include "VolumeFormats.h"

#include <filesystem>
#include <optional>

namespace tamo::tool {

/// Says where a volume is and what its file does not tell.
struct VolumeSource {
    std::filesystem::path path;
    /// Set for a file of bare voxels.
    std::optional<RawLayout> raw;
    /// Takes the place of the file's spacing.
    std::optional<Vector3> spacing;
};

/// Reads a volume of any supported format, told by the file's name. Throws `UserError` for everything that is not a
/// complete volume of at least two voxels a side with one scalar a voxel.
Volume readVolume(VolumeSource const& source, Progress& progress);

} // namespace tamo::tool
