// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/StoredFile.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/support/gzipped.h"

#include <gtest/gtest.h>

namespace {

TEST(StoredFile, HoldsTheFrameThatItsHeaderNames) {
    TemporaryFolder const folder;
    std::string const bytes = "-abcdefghijklmnopABCDEFGH";
    writeFile(folder / "plain", bytes);
    writeFile(folder / "packed", gzipped(bytes));
    for (char const* const name : {"plain", "packed"}) {
        tamo::volume::VolumeHeader header;
        header.size = {2, 2, 2};
        header.frames = 3;
        header.frame = 1;
        tamo::volume::VolumeSource source;
        source.path = folder / "header";
        tamo::volume::VoxelFiles voxels;
        voxels.paths = {folder / name};
        voxels.packing = tamo::volume::packingOf(folder / name);
        voxels.skipped = 1;
        auto const file = openVoxelFiles(source, header, voxels);
        EXPECT_EQ(file->path(), source.path);
        auto const volume = file->read({{1, 0, 0}, {1, 1, 1}}, {});
        EXPECT_EQ(std::string(reinterpret_cast<char const*>(volume.voxels), 4), "jlnp") << name;
        header.frames = 1 << 20;
        EXPECT_THROW(static_cast<void>(openVoxelFiles(source, header, voxels)), tamo::volume::Error) << name;
    }
}

} // namespace
