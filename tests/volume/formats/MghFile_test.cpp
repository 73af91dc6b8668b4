// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Orientation.h"
#include "volume/support/MghBytes.h"
#include "volume/support/gzipped.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::GridGeometry;
using tamo::volume::ScalarType;
using tamo::volume::Volume;
using tamo::volume::VolumeSource;

std::string mghFile(MghOptions const& options, std::size_t voxelBytes) {
    return mghHeader(makePhantom(2, 4, 6), options) + std::string(voxelBytes, '\1');
}

TEST(MghFile, HoldsNumbersOfItsFiveTypesAndNoOthers) {
    TemporaryFolder const folder;
    struct Type {
        int code;
        ScalarType type;
    };
    for (Type const& type : {Type{0, ScalarType::UInt8},
                             {1, ScalarType::Int32},
                             {3, ScalarType::Float32},
                             {4, ScalarType::Int16},
                             {10, ScalarType::UInt16}}) {
        auto const bytes = static_cast<std::size_t>(48 * bytesOf(type.type));
        writeFile(folder / "a.mgh", mghFile({1, 1, type.code, 1}, bytes));
        EXPECT_EQ(readWhole(folder / "a.mgh").header.type, type.type);
        writeFile(folder / "a.mgh", mghFile({1, 1, type.code, 1}, bytes - 1));
        EXPECT_NE(refusalOf(folder / "a.mgh"), "");
    }
    for (int const code : {-1, 2, 5, 6, 7, 8, 9, 11, 1 << 24}) {
        writeFile(folder / "a.mgh", mghFile({1, 1, code, 1}, 1000));
        EXPECT_NE(refusalOf(folder / "a.mgh").find(std::to_string(code)), std::string::npos);
    }
}

TEST(MghFile, IsCoronalAboutTheOriginWhereItStatesNoGeometry) {
    TemporaryFolder const folder;
    writeFile(folder / "a.mgh", mghFile({1, 1, 0, /*goodRas=*/0}, 48));
    VolumeSource source;
    source.path = folder / "a.mgh";
    Volume const volume = readWhole(source);
    GridGeometry const& geometry = volume.header.geometry;
    EXPECT_EQ(tamo::volume::orientationLetters(geometry.axes), "LIA");
    EXPECT_EQ(geometry.spacing, (tamo::Vector3{1, 1, 1}));
    EXPECT_EQ(geometry.position({1, 2, 3}), (tamo::Vector3{0, 0, 0}));
    EXPECT_FALSE(geometry.isSpacingKnown || geometry.isOriginKnown || geometry.areAxesKnown);
    EXPECT_EQ(volume.header.notes.size(), 1);
    source.axes = tamo::volume::parseOrientation("RAS");
    EXPECT_EQ(tamo::volume::orientationLetters(readWhole(source).header.geometry.axes), "RAS");
}

TEST(MghFile, StatesNoGeometryWithAxesThatSpanNoSpace) {
    TemporaryFolder const folder;
    std::string bytes = mghFile({1, 1, 0, 1}, 48);
    // The third axis becomes the second.
    bytes.replace(66, 12, bytes.substr(54, 12));
    writeFile(folder / "a.mgh", bytes);
    Volume const volume = readWhole(folder / "a.mgh");
    EXPECT_FALSE(volume.header.geometry.areAxesKnown);
    EXPECT_EQ(volume.header.notes.size(), 1);
}

TEST(MghFile, MayHaveATrailer) {
    TemporaryFolder const folder;
    writeFile(folder / "a.mgh", mghFile({1, 1, 0, 1}, 48 + 20));
    EXPECT_TRUE(readWhole(folder / "a.mgh").header.notes.empty());
}

TEST(MghFile, HoldsTheFrameAskedFor) {
    TemporaryFolder const folder;
    std::string const bytes = mghFile({1, 3, 0, 1}, 48) + std::string(48, '\2') + std::string(48, '\3');
    writeFile(folder / "a.mgh", bytes);
    writeFile(folder / "a.mgz", gzipped(bytes));
    for (char const* const name : {"a.mgh", "a.mgz"}) {
        VolumeSource source;
        source.path = folder / name;
        EXPECT_NE(refusalOf(source).find("choose one with --frame 0 to 2"), std::string::npos);
        source.frame = 1;
        EXPECT_EQ(valueAt(readWhole(source), 1, 3, 5), 2) << name;
    }
}

TEST(MghFile, IsRefusedWithAnotherVersionOrNoFrames) {
    TemporaryFolder const folder;
    for (MghOptions const& options : {MghOptions{2, 1, 0, 1}, {1, 0, 0, 1}, {1, -1, 0, 1}, {1, INT32_MAX, 0, 1}}) {
        writeFile(folder / "a.mgh", mghFile(options, 48));
        EXPECT_NE(refusalOf(folder / "a.mgh"), "") << options.version << " " << options.frames;
    }
}

} // namespace
