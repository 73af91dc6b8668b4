// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/formats/VolumeFormats.h"
#include "volume/support/NiftiBytes.h"
#include "volume/support/gzipped.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using tamo::volume::Volume;
using tamo::volume::VolumeSource;

// 2 x 2 x 2 numbers of 16 bits from 100 on.
std::string voxels(std::int16_t count = 8) {
    std::string bytes;
    for (std::int16_t i = 0; i < count; ++i) {
        bytes += numberBytes(static_cast<std::int16_t>(100 + i));
    }
    return bytes;
}

NiftiBytes header(std::string const& magic = "n+") {
    NiftiBytes bytes(1, /*isBigEndian=*/false, {2, 2, 2});
    bytes.setMagic(magic);
    bytes.setVoxelOffset(magic == "ni" ? 0 : 352);
    return bytes;
}

TEST(NiftiFile, IsReadOrRefusedInOneLineWhateverItsTypeIs) {
    TemporaryFolder const folder;
    std::set<int> const known{2, 4, 8, 16, 64};
    for (int code = 0; code < 256; ++code) {
        NiftiBytes bytes = header();
        int const bits = code == 2 ? 8 : code == 8 || code == 16 ? 32 : code == 64 ? 64 : 16;
        bytes.setType(code, bits);
        writeFile(folder / "a.nii", bytes.bytes(4) + std::string(static_cast<std::size_t>(bits), '\1'));
        std::string const line = refusalOf(folder / "a.nii");
        EXPECT_EQ(line.empty(), known.count(code) == 1) << code << line;
        EXPECT_EQ(line.find('\n'), std::string::npos);
        EXPECT_TRUE(line.empty() || line.find("datatype " + std::to_string(code)) != std::string::npos) << line;
    }
}

TEST(NiftiFile, NamesTheTypesThatItRefuses) {
    TemporaryFolder const folder;
    for (int const code : {1, 32, 128, 255, 1536, 1792, 2048, 2304}) {
        NiftiBytes bytes = header();
        bytes.setType(code, 16);
        writeFile(folder / "a.nii", bytes.bytes(4) + voxels());
        std::string const line = refusalOf(folder / "a.nii");
        EXPECT_NE(line.find("expected a volume of one scalar per voxel"), std::string::npos) << line;
        EXPECT_EQ(line.find("colour image") != std::string::npos, code == 128 || code == 2304) << line;
        EXPECT_EQ(line.find("UNKNOWN"), std::string::npos) << line;
    }
}

TEST(NiftiFile, NeedsBitsThatAreThoseOfItsType) {
    TemporaryFolder const folder;
    for (int const code : {2, 4, 8, 16, 64, 256, 512, 768, 1024, 1280}) {
        NiftiBytes bytes = header();
        bytes.setType(code, 12);
        writeFile(folder / "a.nii", bytes.bytes(4) + std::string(64, '\0'));
        EXPECT_NE(refusalOf(folder / "a.nii").find("bitpix"), std::string::npos) << code;
    }
}

TEST(NiftiFile, IsPackedWhereItsBytesAreWhateverItsName) {
    TemporaryFolder const folder;
    std::string const whole = header().bytes(4) + voxels();
    writeFile(folder / "a.nii", gzipped(whole));
    writeFile(folder / "a.nii.gz", whole);
    EXPECT_EQ(valueAt(readWhole(folder / "a.nii"), 1, 1, 1), 107);
    EXPECT_EQ(valueAt(readWhole(folder / "a.nii.gz"), 1, 1, 1), 107);
}

TEST(NiftiFile, IsRefusedWithoutItsPartner) {
    TemporaryFolder const folder;
    writeFile(folder / "a.hdr", header("ni").bytes());
    writeFile(folder / "b.img.gz", gzipped(voxels()));
    EXPECT_NE(refusalOf(folder / "a.hdr").find("a.img"), std::string::npos);
    EXPECT_NE(refusalOf(folder / "b.img.gz").find("b.hdr"), std::string::npos);
}

TEST(NiftiFile, FindsItsPartnerPackedOrInCapitals) {
    TemporaryFolder const folder;
    writeFile(folder / "a.hdr", header("ni").bytes());
    writeFile(folder / "a.img.gz", gzipped(voxels()));
    writeFile(folder / "B.HDR", header("ni").bytes());
    writeFile(folder / "B.IMG", voxels());
    for (char const* const name : {"a.hdr", "a.img.gz", "B.HDR", "B.IMG"}) {
        EXPECT_EQ(valueAt(readWhole(folder / name), 1, 1, 1), 107) << name;
    }
}

TEST(NiftiFile, OfOneFileHoldsItsVoxels) {
    TemporaryFolder const folder;
    writeFile(folder / "a.nii", header("ni").bytes() + voxels());
    EXPECT_NE(refusalOf(folder / "a.nii").find("pair"), std::string::npos);
}

TEST(NiftiFile, IsNoOtherHeaderOfThatName) {
    TemporaryFolder const folder;
    writeFile(folder / "a.hdr", "ENVI\nsamples = 2\nlines = 2\nbands = 2\n" + std::string(400, ' '));
    writeFile(folder / "a.img", voxels());
    EXPECT_NE(refusalOf(folder / "a.hdr").find("expected a NIfTI or Analyze header"), std::string::npos);
}

TEST(NiftiFile, SkipsItsExtensions) {
    TemporaryFolder const folder;
    NiftiBytes bytes = header();
    bytes.setVoxelOffset(384);
    std::string const extended = bytes.bytes() + std::string("\1\0\0\0", 4) + std::string(32, 'e');
    writeFile(folder / "a.nii", extended + voxels());
    EXPECT_EQ(valueAt(readWhole(folder / "a.nii"), 0, 0, 0), 100);
    for (std::size_t const length : {std::size_t{350}, std::size_t{370}, extended.size() + 15}) {
        writeFile(folder / "a.nii", (extended + voxels()).substr(0, length));
        EXPECT_NE(refusalOf(folder / "a.nii"), "") << length;
    }
}

TEST(NiftiFile, HoldsTheFrameAskedFor) {
    TemporaryFolder const folder;
    NiftiBytes bytes(1, /*isBigEndian=*/false, {2, 2, 2, 1, 3});
    writeFile(folder / "a.nii", bytes.bytes(4) + voxels(24));
    writeFile(folder / "a.nii.gz", gzipped(bytes.bytes(4) + voxels(24)));
    for (char const* const name : {"a.nii", "a.nii.gz"}) {
        VolumeSource source;
        source.path = folder / name;
        EXPECT_NE(refusalOf(source).find("3 frames; choose one with --frame 0 to 2"), std::string::npos);
        source.frame = 2;
        Volume const volume = readWhole(source);
        EXPECT_EQ(valueAt(volume, 1, 1, 1), 123);
        EXPECT_EQ(volume.header.frames, 3);
        EXPECT_EQ(volume.header.frame, 2);
    }
}

TEST(NiftiFile, NotesBytesBehindItsVoxels) {
    TemporaryFolder const folder;
    writeFile(folder / "a.nii", header().bytes(4) + voxels() + "xyz");
    EXPECT_EQ(readWhole(folder / "a.nii").header.notes.back(), "3 bytes behind the voxels were left out");
}

TEST(NiftiFile, IsRefusedBeforeMemoryIsTakenForMoreThanItHolds) {
    TemporaryFolder const folder;
    NiftiBytes bytes(2, /*isBigEndian=*/false, {1 << 14, 1 << 14, 1 << 14});
    writeFile(folder / "a.nii", bytes.bytes(4) + voxels());
    writeFile(folder / "a.nii.gz", gzipped(bytes.bytes(4) + voxels()));
    for (char const* const name : {"a.nii", "a.nii.gz"}) {
        VolumeSource source;
        source.path = folder / name;
        EXPECT_THROW(static_cast<void>(tamo::volume::openVolume(source, {})), tamo::volume::Error) << name;
    }
}

} // namespace
