// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "StoredFile.h"

namespace tamo::volume {

std::unique_ptr<VolumeFile> openVoxelFiles(VolumeSource const& source, VolumeHeader header, VoxelFiles voxels) {
    voxels.rows.size = header.size;
    voxels.rows.type = header.type;
    voxels.frames = header.frames;
    voxels.frame = header.frame;
    voxels.check();
    return std::make_unique<StoredFile>(source.path, std::move(header), std::move(voxels));
}

} // namespace tamo::volume
