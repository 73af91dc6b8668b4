// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "StoredFile.h"

#include "../Error.h"

#include <array>
#include <string>

namespace tamo::volume {

namespace {

std::uint64_t frameBytes(VoxelRows const& rows) {
    return static_cast<std::uint64_t>(voxelCount(rows.size)) * static_cast<std::uint64_t>(bytesOf(rows.type));
}

} // namespace

Packing packingOf(std::filesystem::path const& path) {
    std::array<unsigned char, 2> first{};
    bool const isGzip =
        openBytes(path, 0, Packing::None)->read(first.data(), first.size()) && first[0] == 0x1F && first[1] == 0x8B;
    return isGzip ? Packing::Gzip : Packing::None;
}

std::uint64_t bytesBehind(StoredVoxels const& voxels) {
    std::uint64_t const found = std::filesystem::file_size(voxels.path);
    bool const isPacked = voxels.packing != Packing::None;
    std::uint64_t const most = mostUnpackedBytes(voxels.packing, found);
    std::uint64_t const frame = frameBytes(voxels.rows);
    auto const frames = static_cast<std::uint64_t>(voxels.frames);
    if (voxels.start > most || (frame > 0 && frames > (most - voxels.start) / frame)) {
        throw Error(voxels.path, "expected " + std::to_string(voxels.frames) + " x " + std::to_string(frame) +
                                     " bytes of voxels behind " + std::to_string(voxels.start) + " bytes, found " +
                                     std::to_string(found) +
                                     (isPacked ? " bytes, which cannot expand to so many" : " bytes") +
                                     "; the file is damaged or truncated");
    }
    return isPacked ? 0 : found - voxels.start - frames * frame;
}

void StoredFile::readVoxels(Box const& box, unsigned char* target, Progress const& progress) const {
    bool const isPacked = _voxels.packing != Packing::None;
    // That the frame lies in the file, `bytesBehind` has made sure.
    std::uint64_t const start = _voxels.start + static_cast<std::uint64_t>(header().frame) * frameBytes(_voxels.rows);
    auto const source = openBytes(_voxels.path, isPacked ? 0 : start, _voxels.packing);
    if ((isPacked && !source->skip(start)) || !readBox(*source, _voxels.rows, box, target, progress)) {
        throw Error(_voxels.path, "expected " + std::to_string(frameBytes(_voxels.rows)) +
                                      " bytes of voxels; the file is damaged or truncated");
    }
    if (!source->finish()) {
        throw Error(_voxels.path, "expected a complete compressed file; it is damaged or truncated");
    }
}

} // namespace tamo::volume
