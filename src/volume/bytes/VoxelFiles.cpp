// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VoxelFiles.h"

#include "../Error.h"
#include "FileBytes.h"
#include "InterleavedBytes.h"
#include "TextVoxels.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <string>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void throwIncomplete(fs::path const& path, std::string const& expected) {
    throw Error(path, "expected " + expected + "; the file is damaged or truncated");
}

// The slices of one file. Where frame follows frame, the slices of all frames are counted through.
struct OneFile {
    VoxelFiles const& files;
    fs::path const& path;
    std::int64_t slices;

    [[nodiscard]] std::uint64_t numbers() const {
        std::int64_t const interleaved = files.isInterleaved ? files.frames : 1;
        return static_cast<std::uint64_t>(files.rows.size[0] * files.rows.size[1] * slices * interleaved);
    }
    [[nodiscard]] std::uint64_t bytes() const {
        return numbers() * static_cast<std::uint64_t>(bytesOf(files.rows.type));
    }
    [[nodiscard]] VoxelRows rows() const {
        return {{files.rows.size[0], files.rows.size[1], slices}, files.rows.type, files.rows.isBigEndian};
    }
};

std::int64_t allSlices(VoxelFiles const& files) {
    return files.rows.size[2] * (files.isInterleaved ? 1 : files.frames);
}

// Returns where the file goes on behind a number of lines: at its end where it has fewer.
std::uint64_t skipLines(fs::path const& path, std::uint64_t start, std::int64_t lines) {
    if (lines == 0) {
        return start;
    }
    std::vector<unsigned char> buffer(1 << 16);
    FileBytes source(path, start);
    while (lines > 0) {
        std::uint64_t const got = source.readSome(buffer.data(), buffer.size());
        if (got == 0) {
            break;
        }
        for (std::uint64_t i = 0; i < got && lines > 0; ++i, ++start) {
            lines -= buffer[i] == '\n' ? 1 : 0;
        }
    }
    return start;
}

// Returns how many bytes precede the voxels in what gzip or bzip2 packs.
std::uint64_t packedSkip(VoxelFiles const& files) {
    bool const isPacked = !files.isText && (files.packing == Packing::Gzip || files.packing == Packing::Bzip2);
    return isPacked ? files.skipped : 0;
}

// Returns the first byte of the voxels, or of what is packed.
std::uint64_t startOf(OneFile const& file) {
    if (!file.files.areLast) {
        return skipLines(file.path, file.files.start, file.files.lines) + file.files.skipped - packedSkip(file.files);
    }
    std::uint64_t const found = fs::file_size(file.path);
    return found > file.bytes() ? found - file.bytes() : 0;
}

void checkFile(OneFile const& file) {
    std::error_code error;
    if (!fs::is_regular_file(file.path, error)) {
        throw Error(file.path, "expected a file of voxels, found no such file");
    }
    if (!std::ifstream(file.path)) {
        throw Error(file.path,
                    "expected a file that can be read, found one that cannot; its permissions may forbid it");
    }
    std::uint64_t const found = fs::file_size(file.path);
    std::uint64_t const start = startOf(file);
    std::uint64_t const left = found > start ? found - start : 0;
    if (file.files.isText) {
        // Each number takes a digit at least, and a blank, which the last one does not need.
        if (file.numbers() > left / 2 + left % 2) {
            throwIncomplete(file.path, std::to_string(file.numbers()) + " numbers, found " + std::to_string(left) +
                                           " bytes of text");
        }
        return;
    }
    std::uint64_t const most = mostUnpackedBytes(file.files.packing, left);
    if (file.bytes() > most || packedSkip(file.files) > most - file.bytes()) {
        throwIncomplete(file.path, std::to_string(file.bytes()) + " bytes of voxels, found " +
                                       (file.files.packing == Packing::None ? "" : "no more than ") +
                                       std::to_string(most));
    }
}

void readBytes(OneFile const& file, Box const& box, unsigned char* target, Progress const& progress) {
    VoxelFiles const& files = file.files;
    auto source = openBytes(file.path, startOf(file), files.packing);
    // Tells the last fraction again while nothing is read that anyone wants.
    double told = 0;
    source->setPulse([&] { report(progress, told); });
    Progress const remembered = [&](double fraction) {
        told = fraction;
        return !progress || progress(fraction);
    };
    bool isGood = source->skip(packedSkip(files));
    if (files.isInterleaved) {
        source = std::make_unique<InterleavedBytes>(std::move(source), bytesOf(files.rows.type), files.frames,
                                                    static_cast<std::uint64_t>(files.frame));
    }
    isGood = isGood && readBox(*source, file.rows(), box, target, remembered);
    if (!isGood) {
        throwIncomplete(file.path, std::to_string(file.bytes()) + " bytes of voxels");
    }
    if (!source->finish()) {
        throwIncomplete(file.path, "packed voxels that are complete");
    }
}

void readText(OneFile const& file, Box const& boxOfVoxels, unsigned char* target, Progress const& progress) {
    VoxelFiles const& files = file.files;
    VoxelRows rows = file.rows();
    Box box = boxOfVoxels;
    std::vector<unsigned char> turns;
    auto const scalarBytes = static_cast<std::size_t>(bytesOf(rows.type));
    auto const count = static_cast<std::size_t>(files.frames);
    auto const voxels = static_cast<std::size_t>(voxelCount(box.sides()));
    unsigned char* numbers = target;
    if (files.isInterleaved) {
        rows.size[0] *= files.frames;
        box.first[0] *= files.frames;
        box.last[0] = box.last[0] * files.frames + files.frames - 1;
        turns.resize(voxels * count * scalarBytes);
        numbers = turns.data();
    }
    if (!readTextBox(file.path, startOf(file), rows, box, numbers, progress)) {
        throwIncomplete(file.path, "a number of the voxels' type for each");
    }
    for (std::size_t i = 0; i < voxels && files.isInterleaved; ++i) {
        std::size_t const from = i * count + static_cast<std::size_t>(files.frame);
        std::memcpy(target + i * scalarBytes, numbers + from * scalarBytes, scalarBytes);
    }
}

} // namespace

void VoxelFiles::check() const {
    constexpr std::int64_t kMostVoxels = INT64_MAX / 8;
    if (!isCountable(rows.size) || (voxelCount(rows.size) > 0 && frames > kMostVoxels / voxelCount(rows.size))) {
        throw Error(paths.front(), "expected less than 2^60 voxels, found " + std::to_string(frames) + " frames of " +
                                       text(rows.size, " x "));
    }
    std::int64_t const slices = allSlices(*this) / static_cast<std::int64_t>(paths.size());
    for (fs::path const& path : paths) {
        checkFile({*this, path, slices});
    }
}

std::uint64_t VoxelFiles::bytesBehind() const {
    if (isText || areLast || packing != Packing::None) {
        return 0;
    }
    OneFile const last{*this, paths.back(), allSlices(*this) / static_cast<std::int64_t>(paths.size())};
    return fs::file_size(last.path) - startOf(last) - last.bytes();
}

void VoxelFiles::read(Box const& box, unsigned char* target, Progress const& progress) const {
    std::int64_t const slices = allSlices(*this) / static_cast<std::int64_t>(paths.size());
    std::int64_t const before = isInterleaved ? 0 : frame * rows.size[2];
    Size3 const sides = box.sides();
    for (std::int64_t done = 0; done < sides[2];) {
        std::int64_t const z = before + box.first[2] + done;
        std::int64_t const part = std::min(sides[2] - done, slices - z % slices);
        OneFile const file{*this, paths[static_cast<std::size_t>(z / slices)], slices};
        Box inFile = box;
        inFile.first[2] = z % slices;
        inFile.last[2] = inFile.first[2] + part - 1;
        Progress const partProgress = [&](double fraction) {
            return !progress || progress((static_cast<double>(done) + fraction * static_cast<double>(part)) /
                                         static_cast<double>(sides[2]));
        };
        (isText ? readText : readBytes)(file, inFile, target, partProgress);
        target += sides[0] * sides[1] * part * bytesOf(rows.type);
        done += part;
    }
}

} // namespace tamo::volume
