// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "volume/Progress.h"
#include "volume/Volume.h"
#include "volume/statistics/ValueRange.h"
#include "volume/statistics/VoxelKind.h"
#include "volume/statistics/VoxelStatistics.h"

#include <optional>
#include <string>

namespace tamo::tool {

/// Says which values are foreground: those in a range, or all but 0. NaN never is.
struct Foreground {
    volume::ValueRange range{};
    bool isAllButZero = false;

    [[nodiscard]] bool contains(double value) const {
        return isAllButZero ? value != 0 && value == value : value >= range.min && value <= range.max;
    }
};

/// Writes a foreground as people say it: "from 3", "1 .. 5", "all but 0".
std::string text(Foreground const& foreground);

/// What the user says of the foreground.
struct ForegroundWish {
    std::optional<double> min;
    std::optional<double> max;
    /// Takes the place of what the voxels look like.
    std::optional<volume::VoxelKind> kind;
};

/// Holds a foreground and why it was chosen.
struct ForegroundChoice {
    Foreground foreground;
    /// As "labels", "grey values by Otsu's method", or empty where the user gave the bounds.
    std::string reason;
};

/// Chooses the foreground: what the bounds say, where one is given; else, of a mask the larger value, of labels what is
/// not 0, of grey values what lies from Otsu's threshold on. Throws `UserError`, naming `path`, where the voxels leave
/// no choice.
ForegroundChoice chooseForeground(volume::Volume const& volume, volume::VoxelStatistics const& statistics,
                                  ForegroundWish const& wish, std::string const& path,
                                  volume::Progress const& progress);

} // namespace tamo::tool
