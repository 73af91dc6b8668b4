// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "../VolumeHeader.h"

#include <cstdint>
#include <filesystem>

namespace tamo::volume {

/// What a file of VTK's older format says of its structured points.
struct LegacyVtkHeader {
    VolumeHeader volume;
    /// Whether the voxels are decimal numbers, rather than big-endian bytes.
    bool isText = false;
    /// Whether the decimal numbers are shares of 255, as VTK writes bytes.
    bool areShares = false;
    /// Where the voxels begin.
    std::uint64_t start = 0;
};

/// Reads all of a file but for the numbers, which it steps over: arrays may stand before and behind the voxels. The
/// voxels are the first scalars of the points, or the first field where there are none. Throws `Error` for other
/// data sets, and for numbers that the file does not hold.
LegacyVtkHeader readLegacyVtkHeader(std::filesystem::path const& path, Progress const& progress);

} // namespace tamo::volume
