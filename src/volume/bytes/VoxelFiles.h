// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Box.h"
#include "../Progress.h"
#include "ByteSource.h"
#include "VoxelRows.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tamo::volume {

/// Says where the voxels of one or more volumes of the same size, called frames, stand: in a file, or in several, each
/// of which holds the same number of slices. All formats but those of pictures and of DICOM are read through it.
struct VoxelFiles {
    /// In the order of their slices; never empty.
    std::vector<std::filesystem::path> paths;
    /// The type, the byte order and the size of one frame.
    VoxelRows rows;
    std::int64_t frames = 1;
    /// Which frame is read.
    std::int64_t frame = 0;
    /// Whether the numbers that all frames have for a voxel stand beside each other, rather than frame behind frame.
    bool isInterleaved = false;
    /// Whether the numbers are written in decimal digits.
    bool isText = false;
    Packing packing = Packing::None;
    /// In each of the files, what comes before the voxels: bytes, then lines, then more bytes, which are counted
    /// unpacked where gzip or bzip2 packs them.
    std::uint64_t start = 0;
    std::int64_t lines = 0;
    std::uint64_t skipped = 0;
    /// Whether instead, in each of the files, the voxels are the last bytes. Not for what is packed or text.
    bool areLast = false;

    /// Checks that the voxels of all frames can be counted, and that the files are there and large enough for them, as
    /// far as that shows without unpacking. Throws `Error`, which names the file.
    void check() const;
    /// Returns how many bytes follow the voxels in the last file, which `check` has found large enough: 0 for what is
    /// packed or text, whose size does not say it.
    [[nodiscard]] std::uint64_t bytesBehind() const;
    /// Writes the voxels of a box to `target`, and reads from no file that has none of them. Throws `Error`, which
    /// names the file that is damaged or incomplete, and `Cancelled`.
    void read(Box const& box, unsigned char* target, Progress const& progress) const;
};

} // namespace tamo::volume
