// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "RawLayout.h"

#include "geometry/Vector3.h"

#include <filesystem>
#include <optional>

namespace tamo::tool {

/// Says where a volume is and what its file does not say.
struct VolumeSource {
    std::filesystem::path path;
    /// Set for a file of bare voxels.
    std::optional<RawLayout> raw;
    /// Takes the place of the file's spacing.
    std::optional<Vector3> spacing;
};

} // namespace tamo::tool
