// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Box.h"
#include "../Progress.h"
#include "../ScalarType.h"
#include "ByteSource.h"

#include <filesystem>

namespace tamo::volume {

/// Describes voxels that stand one behind another, x fastest, then y, then z.
struct VoxelRows {
    Size3 size{};
    ScalarType type = ScalarType::UInt8;
    bool isBigEndian = false;
};

/// Writes the voxels of `box` to `target` in the machine's byte order, and returns whether the source held them: it
/// stands at the first voxel of the whole, and afterwards behind the box's last one. Reads nothing that lies behind
/// that; `finish` says whether the rest is whole.
[[nodiscard]] bool readBox(ByteSource& source, VoxelRows const& rows, Box const& box, unsigned char* target,
                           Progress const& progress);

/// Reverses the bytes of `count` numbers of `scalarBytes` bytes each.
void reverseScalars(unsigned char* data, std::uint64_t count, int scalarBytes);

/// Returns whether this machine stores the most significant byte first.
bool isBigEndianMachine();

} // namespace tamo::volume
