// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VoxelRows.h"

#include <algorithm>
#include <cstring>

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

// Reads as many whole slices at a time as make a large read that still fits into a cache.
std::int64_t slicesAtATime(VoxelRows const& rows, Box const& box) {
    constexpr std::int64_t kBytes = 1 << 18;
    Size3 const sides = box.sides();
    bool const isWholeSlices = sides[0] == rows.size[0] && sides[1] == rows.size[1];
    return isWholeSlices ? 1 + kBytes / (sides[0] * sides[1] * bytesOf(rows.type)) : 1;
}

template <typename Word, typename Swap> void swapBytes(unsigned char* data, std::uint64_t count, Swap&& swap) {
    for (std::uint64_t i = 0; i < count; ++i) {
        Word word;
        std::memcpy(&word, data + i * sizeof(Word), sizeof(Word));
        word = swap(word);
        std::memcpy(data + i * sizeof(Word), &word, sizeof(Word));
    }
}

} // namespace

bool readBox(ByteSource& source, VoxelRows const& rows, Box const& box, unsigned char* target,
             Progress const& progress) {
    Size3 const sides = box.sides();
    auto const voxel = static_cast<std::uint64_t>(bytesOf(rows.type));
    auto const bytes = [voxel](std::int64_t voxels) { return static_cast<std::uint64_t>(voxels) * voxel; };
    if (!source.skip(bytes(box.first[2] * rows.size[0] * rows.size[1]))) {
        return false;
    }
    bool const isForeign = voxel > 1 && rows.isBigEndian != isBigEndianMachine();
    std::int64_t const most = slicesAtATime(rows, box);
    for (std::int64_t z = 0; z < sides[2];) {
        std::int64_t const slices = std::min(most, sides[2] - z);
        std::int64_t const voxels = slices * sides[0] * sides[1];
        if (!(most > 1 ? source.read(target, bytes(voxels)) : readSlice(source, rows, box, target))) {
            return false;
        }
        if (isForeign) {
            reverseScalars(target, static_cast<std::uint64_t>(voxels), static_cast<int>(voxel));
        }
        target += bytes(voxels);
        z += slices;
        report(progress, static_cast<double>(z) / static_cast<double>(sides[2]));
    }
    return true;
}

void reverseScalars(unsigned char* data, std::uint64_t count, int scalarBytes) {
    switch (scalarBytes) {
    case 1:
        break;
    case 2:
        swapBytes<std::uint16_t>(data, count, [](std::uint16_t word) { return __builtin_bswap16(word); });
        break;
    case 4:
        swapBytes<std::uint32_t>(data, count, [](std::uint32_t word) { return __builtin_bswap32(word); });
        break;
    case 8:
        swapBytes<std::uint64_t>(data, count, [](std::uint64_t word) { return __builtin_bswap64(word); });
        break;
    default:
        for (std::uint64_t i = 0; i < count; ++i, data += scalarBytes) {
            std::reverse(data, data + scalarBytes);
        }
    }
}

bool isBigEndianMachine() {
    constexpr std::uint16_t kOne = 1;
    return *reinterpret_cast<unsigned char const*>(&kOne) == 0;
}

} // namespace tamo::volume
