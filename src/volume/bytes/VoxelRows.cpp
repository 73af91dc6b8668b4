// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VoxelRows.h"

#include <algorithm>

namespace tamo::volume {

namespace {

// Reads the rows of one slice of the box; the source stands at the slice's first voxel, then behind its last.
bool readSlice(ByteSource& source, VoxelRows const& rows, Box const& box, unsigned char* target) {
    auto const voxel = static_cast<std::uint64_t>(bytesOf(rows.type));
    Size3 const sides = box.sides();
    auto const bytes = [voxel](std::int64_t voxels) { return static_cast<std::uint64_t>(voxels) * voxel; };
    std::int64_t const width = rows.size[0];
    if (sides[0] == width) {
        return source.skip(bytes(box.first[1] * width)) && source.read(target, bytes(sides[1] * width)) &&
               source.skip(bytes((rows.size[1] - 1 - box.last[1]) * width));
    }
    if (!source.skip(bytes(box.first[1] * width + box.first[0]))) {
        return false;
    }
    for (std::int64_t y = 0; y < sides[1]; ++y) {
        bool const isLast = y + 1 == sides[1];
        std::int64_t const behind = isLast ? (rows.size[1] - box.last[1]) * width - 1 - box.last[0] : width - sides[0];
        if (!source.read(target + bytes(y * sides[0]), bytes(sides[0])) || !source.skip(bytes(behind))) {
            return false;
        }
    }
    return true;
}

} // namespace

bool readBox(ByteSource& source, VoxelRows const& rows, Box const& box, unsigned char* target,
             Progress const& progress) {
    Size3 const sides = box.sides();
    auto const voxel = static_cast<std::uint64_t>(bytesOf(rows.type));
    std::uint64_t const sliceVoxels =
        static_cast<std::uint64_t>(rows.size[0]) * static_cast<std::uint64_t>(rows.size[1]);
    std::uint64_t const boxSliceVoxels = static_cast<std::uint64_t>(sides[0]) * static_cast<std::uint64_t>(sides[1]);
    if (!source.skip(static_cast<std::uint64_t>(box.first[2]) * sliceVoxels * voxel)) {
        return false;
    }
    bool const isForeign = voxel > 1 && rows.isBigEndian != isBigEndianMachine();
    for (std::int64_t z = 0; z < sides[2]; ++z, target += boxSliceVoxels * voxel) {
        if (!readSlice(source, rows, box, target)) {
            return false;
        }
        if (isForeign) {
            reverseScalars(target, boxSliceVoxels, static_cast<int>(voxel));
        }
        report(progress, static_cast<double>(z + 1) / static_cast<double>(sides[2]));
    }
    return true;
}

void reverseScalars(unsigned char* data, std::uint64_t count, int scalarBytes) {
    for (std::uint64_t i = 0; i < count; ++i, data += scalarBytes) {
        std::reverse(data, data + scalarBytes);
    }
}

bool isBigEndianMachine() {
    constexpr std::uint16_t kOne = 1;
    return *reinterpret_cast<unsigned char const*>(&kOne) == 0;
}

} // namespace tamo::volume
