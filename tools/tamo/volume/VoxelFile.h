// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../terminal/Progress.h"
#include "Volume.h"

#include <cstdint>
#include <filesystem>

namespace tamo::tool {

enum class VoxelEncoding {
    Raw,
    /// A zlib or gzip stream.
    Compressed,
    /// Decimal numbers with blanks between them.
    Text,
};

/// Says where in a file voxels stand, x fastest, then y, then z, and how they are written.
struct VoxelLocation {
    std::filesystem::path path;
    std::uint64_t start = 0;
    VoxelEncoding encoding = VoxelEncoding::Raw;
    bool isBigEndian = false;
    /// Bytes to leave out of the expanded stream, where there is one.
    std::uint64_t expandedSkip = 0;
};

/// Fills the volume's image, which has to be allocated. Throws `UserError` for a file that does not hold all of it.
void readVoxels(Volume& volume, VoxelLocation const& location, Progress& progress);

/// Returns where the last `bytes` bytes of a file begin, 0 where it has fewer.
std::uint64_t startOfLastBytes(std::filesystem::path const& path, std::uint64_t bytes);

/// Throws `UserError` for a gzip file that does not expand to its end.
void checkGzipFile(std::filesystem::path const& path);

} // namespace tamo::tool
