// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ByteOrder.h"
#include "UserError.h"
#include "VolumeFormats.h"

#include <fstream>

namespace tamo {

Volume readRaw(std::filesystem::path const& path, RawLayout const& layout, Progress& progress) {
    Volume volume;
    volume.format = "raw";
    volume.size = layout.size;
    volume.image = allocateImage(layout.size, layout.vtkType, path.string());

    std::uint64_t const expected = layout.headerBytes + voxelBytes(volume);
    std::uint64_t const found = std::filesystem::file_size(path);
    if (found != expected) {
        throw UserError(path.string() + ": expected " + std::to_string(expected) +
                        " bytes (--header, and --dims voxels of --type), found " + std::to_string(found));
    }
    std::ifstream file(path, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(layout.headerBytes));
    std::uint64_t const sliceBytes = voxelBytes(volume) / static_cast<std::uint64_t>(layout.size[2]);
    for (int z = 0; z < layout.size[2]; ++z) {
        unsigned char* const slice = rowAddress(*volume.image, 0, z);
        file.read(reinterpret_cast<char*>(slice), static_cast<std::streamsize>(sliceBytes));
        toNativeOrder(slice, sliceBytes, volume.image->GetScalarSize(), layout.isBigEndian);
        progress.update((z + 1.0) / layout.size[2]);
    }
    if (!file) {
        throw UserError(path.string() + ": expected a readable file of voxels");
    }
    return volume;
}

} // namespace tamo
