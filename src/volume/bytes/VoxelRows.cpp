// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VoxelRows.h"

#include <algorithm>
#include <cstring>

namespace tamo::volume {

namespace {

// Voxels of a box are read in the order of the file, which `source` stands in.
struct BoxReader {
    ByteSource& source;
    VoxelRows const& rows;
    Box const& box;
    Progress const& progress;
    unsigned char* target;

    [[nodiscard]] std::uint64_t bytes(std::int64_t voxels) const {
        return static_cast<std::uint64_t>(voxels) * static_cast<std::uint64_t>(bytesOf(rows.type));
    }
    [[nodiscard]] bool skip(std::int64_t voxels) const { return source.skip(bytes(voxels)); }

    // Reads voxels that stand beside each other.
    [[nodiscard]] bool read(std::int64_t voxels) {
        if (!source.read(target, bytes(voxels))) {
            return false;
        }
        if (rows.isBigEndian != isBigEndianMachine()) {
            reverseScalars(target, static_cast<std::uint64_t>(voxels), bytesOf(rows.type));
        }
        target += bytes(voxels);
        return true;
    }

    // Reads whole slices. In pieces, whose bytes are reversed while they are in the cache.
    [[nodiscard]] bool readSlices() {
        constexpr std::int64_t kBytes = 1 << 18;
        std::int64_t const piece = kBytes / bytesOf(rows.type);
        std::int64_t const voxels = voxelCount(box.sides());
        for (std::int64_t done = 0; done < voxels;) {
            std::int64_t const part = std::min(piece, voxels - done);
            if (!read(part)) {
                return false;
            }
            done += part;
            report(progress, static_cast<double>(done) / static_cast<double>(voxels));
        }
        return true;
    }

    // Reads the rows of one slice; stands at the slice's first voxel, then behind its last.
    [[nodiscard]] bool readSlice() {
        Size3 const sides = box.sides();
        std::int64_t const width = rows.size[0];
        std::int64_t const behind = (rows.size[1] - box.last[1]) * width - 1 - box.last[0];
        if (sides[0] == width) {
            return skip(box.first[1] * width) && read(sides[1] * width) && skip(behind);
        }
        if (!skip(box.first[1] * width + box.first[0])) {
            return false;
        }
        for (std::int64_t y = 0; y < sides[1]; ++y) {
            bool const isLast = y + 1 == sides[1];
            if (!read(sides[0]) || !skip(isLast ? behind : width - sides[0])) {
                return false;
            }
        }
        return true;
    }
};

template <typename Word, typename Swap> void swapWords(unsigned char* data, std::uint64_t count, Swap&& swap) {
    for (std::uint64_t i = 0; i < count; ++i) {
        Word word;
        std::memcpy(&word, data + i * sizeof(Word), sizeof(Word));
        word = swap(word);
        std::memcpy(data + i * sizeof(Word), &word, sizeof(Word));
    }
}

template <typename Word, typename Swap> void swapBytes(unsigned char* data, std::uint64_t count, Swap&& swap) {
    // Loops of a fixed length become vector instructions even where compilers are told to be careful (-O2).
    constexpr std::uint64_t kBlock = 64;
    for (; count >= kBlock; count -= kBlock, data += kBlock * sizeof(Word)) {
        swapWords<Word>(data, kBlock, swap);
    }
    swapWords<Word>(data, count, swap);
}

} // namespace

bool readBox(ByteSource& source, VoxelRows const& rows, Box const& box, unsigned char* target,
             Progress const& progress) {
    BoxReader reader{source, rows, box, progress, target};
    Size3 const sides = box.sides();
    if (!reader.skip(box.first[2] * rows.size[0] * rows.size[1])) {
        return false;
    }
    if (sides[0] == rows.size[0] && sides[1] == rows.size[1]) {
        return reader.readSlices();
    }
    for (std::int64_t z = 0; z < sides[2]; ++z) {
        if (!reader.readSlice()) {
            return false;
        }
        report(progress, static_cast<double>(z + 1) / static_cast<double>(sides[2]));
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
