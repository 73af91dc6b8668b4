// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../geometry/Vector3.h"
#include "RawLayout.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tamo::volume {

/// Says where a volume is, which of several to take, and what its file does not say.
struct VolumeSource {
    std::filesystem::path path;
    /// Set for a file of bare voxels.
    std::optional<RawLayout> raw;
    /// Takes the place of the file's spacing, in millimetres.
    std::optional<Vector3> spacing;
    /// Takes the place of axes that the file does not state.
    std::optional<std::array<Vector3, 3>> axes;
    /// Which of several frames (points of time, layers), from 0.
    std::optional<std::int64_t> frame;
    /// Which of several channels, from 0.
    std::optional<std::int64_t> channel;
    /// Which of several series: its number or its UID.
    std::string series;
    /// Which of the named segments, for the frame that it stands in.
    std::string segment;
};

} // namespace tamo::volume
