// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "StoredFile.h"
#include "VolumeFormats.h"

namespace tamo::volume {

std::unique_ptr<VolumeFile> openRaw(VolumeSource const& source, Progress const&) {
    RawLayout const& layout = source.raw.value();
    if (!isCountable(layout.size)) {
        throw Error(source.path, "expected a volume of less than 2^60 voxels, found " + text(layout.size, " x "));
    }
    // A file that is longer is as suspicious as one that is shorter: the numbers given are not those of the file.
    std::uint64_t const expected = layout.headerBytes + static_cast<std::uint64_t>(voxelCount(layout.size)) *
                                                            static_cast<std::uint64_t>(bytesOf(layout.type));
    std::uint64_t const found = std::filesystem::file_size(source.path);
    if (found != expected) {
        throw Error(source.path, "expected " + std::to_string(expected) +
                                     " bytes (--header, and --dims voxels of --type), found " + std::to_string(found));
    }
    VolumeHeader header;
    header.format = "raw";
    header.type = layout.type;
    header.size = layout.size;
    VoxelFiles voxels;
    voxels.paths = {source.path};
    voxels.start = layout.headerBytes;
    voxels.rows.isBigEndian = layout.isBigEndian;
    return openVoxelFiles(source, std::move(header), std::move(voxels));
}

} // namespace tamo::volume
