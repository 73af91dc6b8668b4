// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/VoxelFiles.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/support/packed.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using tamo::volume::Box;
using tamo::volume::Error;
using tamo::volume::Packing;
using tamo::volume::ScalarType;
using tamo::volume::VoxelFiles;

// Volumes of 2 x 2 x 4 voxels of one byte, of which each is a letter.
VoxelFiles volumeIn(std::vector<std::filesystem::path> paths) {
    VoxelFiles files;
    files.paths = std::move(paths);
    files.rows = {{2, 2, 4}, ScalarType::UInt8, false};
    return files;
}

constexpr Box kWhole{{0, 0, 0}, {1, 1, 3}};

std::string textOf(VoxelFiles const& files, Box const& box = kWhole) {
    files.check();
    std::string voxels(static_cast<std::size_t>(tamo::volume::voxelCount(box.sides())), '\0');
    files.read(box, reinterpret_cast<unsigned char*>(voxels.data()), {});
    return voxels;
}

std::string refusalOf(VoxelFiles const& files) {
    try {
        static_cast<void>(textOf(files));
    } catch (Error const& error) {
        return error.path().filename().string();
    }
    return "";
}

TEST(VoxelFiles, HoldTheSameNumberOfSlicesEach) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "abcdefgh");
    writeFile(folder / "b", "ijklmnop");
    VoxelFiles const files = volumeIn({folder / "a", folder / "b"});
    EXPECT_EQ(textOf(files), "abcdefghijklmnop");
    EXPECT_EQ(textOf(files, {{1, 0, 1}, {1, 1, 2}}), "fhjl");
    EXPECT_EQ(textOf(files, {{0, 1, 3}, {1, 1, 3}}), "op");
}

TEST(VoxelFiles, AreOnlyReadWhereTheyHoldVoxelsOfTheBox) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "abcdefgh");
    writeFile(folder / "b", "ijklmnop");
    VoxelFiles const files = volumeIn({folder / "a", folder / "b"});
    std::string voxels(8, '\0');
    std::filesystem::remove(folder / "b");
    files.read({{0, 0, 0}, {1, 1, 1}}, reinterpret_cast<unsigned char*>(voxels.data()), {});
    EXPECT_EQ(voxels, "abcdefgh");
    EXPECT_EQ(refusalOf(files), "b");
}

TEST(VoxelFiles, HoldFramesBehindEachOther) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "head0123456789012345abcdefghijklmnop");
    VoxelFiles files = volumeIn({folder / "a"});
    files.frames = 2;
    files.start = 4;
    EXPECT_EQ(textOf(files), "0123456789012345");
    files.frame = 1;
    EXPECT_EQ(textOf(files), "abcdefghijklmnop");
    EXPECT_EQ(textOf(files, {{0, 0, 1}, {0, 1, 2}}), "egik");
}

TEST(VoxelFiles, HoldFramesThatTakeTurns) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "0a1b2c3d4e5f6g7h");
    writeFile(folder / "b", "8i9j0k1l2m3n4o5p");
    VoxelFiles files = volumeIn({folder / "a", folder / "b"});
    files.frames = 2;
    files.isInterleaved = true;
    EXPECT_EQ(textOf(files), "0123456789012345");
    files.frame = 1;
    EXPECT_EQ(textOf(files), "abcdefghijklmnop");
    EXPECT_EQ(textOf(files, {{1, 0, 1}, {1, 1, 2}}), "fhjl");
}

TEST(VoxelFiles, HoldFramesOfTextInEitherOrder) {
    TemporaryFolder const folder;
    std::string text;
    for (int i = 0; i < 32; ++i) {
        text += std::to_string(64 + i) + " ";
    }
    writeFile(folder / "a", "head " + text);
    VoxelFiles files = volumeIn({folder / "a"});
    files.isText = true;
    files.frames = 2;
    files.frame = 1;
    files.skipped = 4;
    EXPECT_EQ(textOf(files), "PQRSTUVWXYZ[\\]^_");
    files.isInterleaved = true;
    EXPECT_EQ(textOf(files), "ACEGIKMOQSUWY[]_");
    EXPECT_EQ(textOf(files, {{1, 1, 1}, {1, 1, 2}}), "OW");
}

TEST(VoxelFiles, BeginBehindBytesAndLinesAndBytes) {
    TemporaryFolder const folder;
    std::string const voxels = "abcdefghijklmnop";
    VoxelFiles files = volumeIn({folder / "a"});
    files.start = 2;
    files.lines = 2;
    files.skipped = 3;
    std::string const lines = "\n\none\ntwo\n";
    std::vector<std::pair<Packing, std::string>> const packed{{Packing::None, "xyz" + voxels},
                                                              {Packing::Gzip, zlibbed("xyz" + voxels)},
                                                              {Packing::Bzip2, bzipped("xyz" + voxels)},
                                                              {Packing::Hex, "xyz" + hexDigits(voxels)}};
    for (auto const& [packing, bytes] : packed) {
        writeFile(folder / "a", lines + bytes);
        files.packing = packing;
        EXPECT_EQ(textOf(files), voxels);
    }
}

TEST(VoxelFiles, MayBeTheLastBytes) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "anything before\nabcdefghijklmnop");
    VoxelFiles files = volumeIn({folder / "a"});
    files.areLast = true;
    EXPECT_EQ(textOf(files), "abcdefghijklmnop");
    writeFile(folder / "a", "abcdefghijklmno");
    EXPECT_EQ(refusalOf(files), "a");
}

TEST(VoxelFiles, AreRefusedBeforeTheyAreReadWhereTheyAreTooShort) {
    TemporaryFolder const folder;
    VoxelFiles files = volumeIn({folder / "a"});
    files.rows.size = {1000, 1000, 1000};
    for (Packing const packing : {Packing::None, Packing::Gzip, Packing::Bzip2, Packing::Hex}) {
        files.packing = packing;
        writeFile(folder / "a", std::string(300, '0'));
        EXPECT_THROW(files.check(), tamo::volume::Error);
    }
    files.packing = Packing::None;
    files.isText = true;
    EXPECT_THROW(files.check(), tamo::volume::Error);
    files.rows.size = {10, 15, 1};
    EXPECT_NO_THROW(files.check());
}

TEST(VoxelFiles, AreRefusedWhereWhatIsPackedIsNotComplete) {
    TemporaryFolder const folder;
    VoxelFiles files = volumeIn({folder / "a"});
    files.packing = Packing::Gzip;
    std::string const packed = zlibbed(noise(16));
    writeFile(folder / "a", packed);
    EXPECT_EQ(refusalOf(files), "");
    writeFile(folder / "a", packed.substr(0, packed.size() - 1));
    EXPECT_EQ(refusalOf(files), "a");
}

// Three frames of 2 x 2 x 2 bytes behind one byte.
VoxelFiles threeFrames(std::filesystem::path const& path) {
    VoxelFiles files;
    files.paths = {path};
    files.skipped = 1;
    files.rows.size = {2, 2, 2};
    files.frames = 3;
    return files;
}

TEST(VoxelFiles, MayBeFollowedByOtherBytes) {
    TemporaryFolder const folder;
    writeFile(folder / "a", std::string(27, 'x'));
    EXPECT_NO_THROW(threeFrames(folder / "a").check());
    EXPECT_EQ(threeFrames(folder / "a").bytesBehind(), 2U);
    writeFile(folder / "a", std::string(24, 'x'));
    EXPECT_THROW(threeFrames(folder / "a").check(), Error);
}

TEST(VoxelFiles, RefuseFramesThatCannotBeCounted) {
    TemporaryFolder const folder;
    writeFile(folder / "a", std::string(25, 'x'));
    VoxelFiles files = threeFrames(folder / "a");
    EXPECT_EQ(files.bytesBehind(), 0U);
    files.frames = INT64_MAX;
    EXPECT_THROW(files.check(), Error);
    files.frames = INT64_MAX / 64 + 1;
    EXPECT_THROW(files.check(), Error);
    files = threeFrames(folder / "a");
    files.skipped = UINT64_MAX;
    EXPECT_THROW(files.check(), Error);
}

TEST(VoxelFiles, CanBeCancelledWhereNothingIsReadThatIsWanted) {
    TemporaryFolder const folder;
    constexpr std::uint64_t kSkipped = 1 << 20;
    writeFile(folder / "a",
              zlibbed(std::string(kSkipped, '-') + "abcdefghABCDEFGHabcdefgh" + std::string(kSkipped, '-')));
    VoxelFiles files = threeFrames(folder / "a");
    files.packing = Packing::Gzip;
    files.skipped = kSkipped;
    int calls = 0;
    std::array<unsigned char, 8> voxels{};
    files.read(tamo::volume::wholeOf({2, 2, 2}), voxels.data(), [&](double) { return ++calls > 0; });
    EXPECT_GT(calls, 20);
    for (int const last : {1, calls}) {
        calls = 0;
        auto const cancel = [&](double) { return ++calls < last; };
        EXPECT_THROW(files.read(tamo::volume::wholeOf({2, 2, 2}), voxels.data(), cancel), tamo::volume::Cancelled);
    }
}

} // namespace
