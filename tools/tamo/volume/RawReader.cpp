// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../terminal/UserError.h"
#include "VolumeFormats.h"
#include "VoxelFile.h"

namespace tamo::tool {

Volume readRaw(std::filesystem::path const& path, RawLayout const& layout, Progress& progress) {
    Volume volume;
    volume.format = "raw";
    volume.size = layout.size;
    volume.image = allocateImage(layout.size, layout.vtkType, path.string());

    // A file that is longer is as suspicious as one that is shorter: the numbers given are not those of the file.
    std::uint64_t const expected = layout.headerBytes + voxelBytes(volume);
    std::uint64_t const found = std::filesystem::file_size(path);
    if (found != expected) {
        throw UserError(path.string() + ": expected " + std::to_string(expected) +
                        " bytes (--header, and --dims voxels of --type), found " + std::to_string(found));
    }
    readVoxels(volume, {path, layout.headerBytes, VoxelEncoding::Raw, layout.isBigEndian}, progress);
    return volume;
}

} // namespace tamo::tool
