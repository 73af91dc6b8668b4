// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "VoxelRows.h"

#include <cstdint>
#include <filesystem>

namespace tamo::volume {

/// Writes the voxels of `box` to `target`, read from decimal numbers with blanks or line breaks between them, which
/// begin at byte `start` of a file. Returns whether there was a number of the voxels' type for every voxel of the whole
/// volume, those outside of the box included; what follows the last one is not looked at.
///
/// A plus sign may stand before a number. "nan" and "inf" are numbers of floating-point types, in any case; numbers too
/// small for the type come close to 0. No number: one past the largest of its type, a fraction for whole numbers, a
/// negative one for types without sign, and a word of more than 64 KiB.
[[nodiscard]] bool readTextBox(std::filesystem::path const& path, std::uint64_t start, VoxelRows const& rows,
                               Box const& box, unsigned char* target, Progress const& progress);

} // namespace tamo::volume
