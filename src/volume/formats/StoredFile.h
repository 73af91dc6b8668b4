// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../VolumeFile.h"
#include "../bytes/VoxelRows.h"

#include <cstdint>
#include <filesystem>

namespace tamo::volume {

/// Says where the voxels of all frames of a file stand: frame by frame without gaps, each x fastest, then y, then z.
struct StoredVoxels {
    std::filesystem::path path;
    Packing packing = Packing::None;
    /// Where the first frame begins, in what the file expands to.
    std::uint64_t start = 0;
    /// The voxels of one frame, as they are stored.
    VoxelRows rows;
    std::int64_t frames = 1;
};

/// Returns how a file is packed by its first bytes, whatever its name: `None` or `Gzip`.
Packing packingOf(std::filesystem::path const& path);

/// Returns how many bytes stand behind the last frame; 0 for a packed file, whose size does not say it. Throws `Error`
/// for a file too short for all frames: a packed one that cannot expand to so many bytes; less is found out when it is
/// read.
std::uint64_t bytesBehind(StoredVoxels const& voxels);

/// A file whose voxels stand as `StoredVoxels` says, in the frame and the type that the header names.
class StoredFile : public VolumeFile {
  public:
    StoredFile(std::filesystem::path path, VolumeHeader header, StoredVoxels voxels)
        : VolumeFile(std::move(path), std::move(header)), _voxels(std::move(voxels)) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override;

    StoredVoxels _voxels;
};

} // namespace tamo::volume
