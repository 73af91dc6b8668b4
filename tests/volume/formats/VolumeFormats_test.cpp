// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/VolumeFormats.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::ScalarType;
using tamo::volume::VolumeSource;

TEST(RawFile, HoldsTheVoxelsBehindItsHeader) {
    TemporaryFolder const folder;
    writeFile(folder / "a.raw", "headabcdefgh");
    VolumeSource source;
    source.path = folder / "a.raw";
    source.raw = {{2, 2, 2}, ScalarType::UInt8, false, 4};
    EXPECT_EQ(valueAt(readWhole(source), 1, 1, 1), 'h');
    source.raw->headerBytes = 3;
    EXPECT_NE(refusalOf(source), "");
}

} // namespace
