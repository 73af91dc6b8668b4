// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "volume/Box.h"

#include <optional>
#include <string>

namespace tamo::tool {

/// Says which voxels of a volume are used.
struct ScanRegion {
    /// The distance of the voxels used, at least 1.
    int step = 1;
    /// All of the volume where there is none.
    std::optional<volume::Box> box;

    /// Returns the box to scan in a volume of a size.
    [[nodiscard]] volume::Box boxIn(volume::Size3 const& size) const;
    /// Returns in one line why a volume of a size, whose source is called `name`, cannot be scanned so; nothing where
    /// it can.
    [[nodiscard]] std::optional<std::string> faultIn(volume::Size3 const& size, std::string const& name) const;
    /// Returns likewise why no volume can.
    [[nodiscard]] std::optional<std::string> faultAnywhere() const;
};

} // namespace tamo::tool
