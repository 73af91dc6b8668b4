// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../VolumeFile.h"
#include "../VolumeSource.h"
#include "../bytes/VoxelFiles.h"

#include <memory>

namespace tamo::volume {

/// A volume whose header says where its voxels stand.
class StoredFile : public VolumeFile {
  public:
    StoredFile(std::filesystem::path path, VolumeHeader header, VoxelFiles voxels)
        : VolumeFile(std::move(path), std::move(header)), _voxels(std::move(voxels)) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        _voxels.read(box, target, progress);
    }

    VoxelFiles _voxels;
};

/// Opens the volume of a header whose type, size, number of frames and frame are set; of `voxels` it sets what follows
/// from those. Throws `Error` where files are missing or too short.
std::unique_ptr<VolumeFile> openVoxelFiles(VolumeSource const& source, VolumeHeader header, VoxelFiles voxels);

} // namespace tamo::volume
