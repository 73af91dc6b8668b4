// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/StoredFile.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/support/gzipped.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::bytesBehind;
using tamo::volume::Packing;
using tamo::volume::StoredVoxels;

// Three frames of 2 x 2 x 2 bytes behind one byte.
StoredVoxels threeFrames(std::filesystem::path const& path) {
    return {path, tamo::volume::packingOf(path), 1, {{2, 2, 2}, tamo::volume::ScalarType::UInt8, false}, 3};
}

TEST(StoredFile, HoldsTheFrameThatItsHeaderNames) {
    TemporaryFolder const folder;
    std::string const bytes = "-abcdefghijklmnopABCDEFGH";
    writeFile(folder / "plain", bytes);
    writeFile(folder / "packed", gzipped(bytes));
    for (char const* const name : {"plain", "packed"}) {
        tamo::volume::VolumeHeader header;
        header.size = {2, 2, 2};
        header.frame = 1;
        tamo::volume::StoredFile const file(folder / name, header, threeFrames(folder / name));
        tamo::volume::Volume const volume = file.read({{1, 0, 1}, {1, 1, 1}}, {});
        EXPECT_EQ(valueAt(volume, 0, 0, 0), 'n') << name;
        EXPECT_EQ(valueAt(volume, 0, 1, 0), 'p') << name;
    }
}

TEST(StoredFile, IsPackedWhereItsFirstBytesSaySo) {
    TemporaryFolder const folder;
    writeFile(folder / "plain.gz", "text");
    writeFile(folder / "packed", gzipped("text"));
    writeFile(folder / "empty.gz", "");
    EXPECT_EQ(tamo::volume::packingOf(folder / "plain.gz"), Packing::None);
    EXPECT_EQ(tamo::volume::packingOf(folder / "empty.gz"), Packing::None);
    EXPECT_EQ(tamo::volume::packingOf(folder / "packed"), Packing::Gzip);
}

TEST(StoredFile, NeedsAFileLongEnoughForAllFrames) {
    TemporaryFolder const folder;
    writeFile(folder / "a", std::string(25, 'x'));
    EXPECT_EQ(bytesBehind(threeFrames(folder / "a")), 0);
    writeFile(folder / "a", std::string(27, 'x'));
    EXPECT_EQ(bytesBehind(threeFrames(folder / "a")), 2);
    writeFile(folder / "a", std::string(24, 'x'));
    EXPECT_THROW(static_cast<void>(bytesBehind(threeFrames(folder / "a"))), tamo::volume::Error);
    StoredVoxels voxels = threeFrames(folder / "a");
    voxels.start = UINT64_MAX;
    EXPECT_THROW(static_cast<void>(bytesBehind(voxels)), tamo::volume::Error);
    voxels.start = 0;
    voxels.frames = INT64_MAX;
    EXPECT_THROW(static_cast<void>(bytesBehind(voxels)), tamo::volume::Error);
}

TEST(StoredFile, NeedsAPackedFileThatCanExpandToAllFrames) {
    TemporaryFolder const folder;
    // Nothing packs better than zeros, which come within a few bytes of what can be.
    constexpr std::size_t kSide = 100;
    writeFile(folder / "a.gz", gzipped(std::string(kSide * kSide * kSide + 1, '\0')));
    StoredVoxels voxels{
        folder / "a.gz", Packing::Gzip, 1, {{100, 100, 100}, tamo::volume::ScalarType::UInt8, false}, 1};
    EXPECT_EQ(bytesBehind(voxels), 0);
    voxels.frames = 100;
    EXPECT_THROW(static_cast<void>(bytesBehind(voxels)), tamo::volume::Error);
}

} // namespace
