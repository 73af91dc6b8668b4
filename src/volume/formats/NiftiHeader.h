// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../VolumeHeader.h"
#include "../bytes/ByteSource.h"

#include <cstdint>
#include <filesystem>

namespace tamo::volume {

/// What the header of a NIfTI-1, NIfTI-2 or Analyze 7.5 file says.
struct NiftiHeader {
    /// All but the choice of a frame.
    VolumeHeader volume;
    bool isBigEndian = false;
    /// Whether the voxels stand behind the header, rather than in a file of their own.
    bool isSingleFile = false;
    /// Where they begin, in what their file expands to.
    std::uint64_t voxelStart = 0;
};

/// Reads a header. Geometry comes from the sform, else from the qform, lengths and directions alike; without either,
/// spacing alone is known. Throws `Error` for a file that begins otherwise, for sides that are none, and for voxels
/// that are not one number each.
NiftiHeader readNiftiHeader(std::filesystem::path const& path, Packing packing);

} // namespace tamo::volume
