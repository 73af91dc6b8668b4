// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/packed.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using tamo::Vector3;
using tamo::volume::GridGeometry;
using tamo::volume::ScalarType;
using tamo::volume::Volume;
using tamo::volume::VolumeHeader;

std::string const kSize = "NDims = 3\nElementType = MET_UCHAR\nDimSize = 2 2 2\n";

class MetaImageFile : public testing::Test {
  protected:
    // The header of a volume of which some fields are given.
    VolumeHeader headerWith(std::string const& fields) {
        writeFile(_folder / "a.mha", kSize + fields + "ElementDataFile = LOCAL\nabcdefgh");
        return readWhole(_folder / "a.mha").header;
    }
    std::string refusalWith(std::string const& text) {
        writeFile(_folder / "a.mha", text);
        return refusalOf(_folder / "a.mha");
    }
    // The eight voxels, each a letter.
    std::string textOf(std::string const& header) {
        writeFile(_folder / "a.mhd", header);
        Volume const volume = readWhole(_folder / "a.mhd");
        return {reinterpret_cast<char const*>(volume.voxels), volume.bytes()};
    }

    TemporaryFolder _folder;
};

TEST_F(MetaImageFile, WithoutAMatrixLiesAsWithThatOfIdentity) {
    GridGeometry const assumed = headerWith("Offset = 1 2 3\n").geometry;
    GridGeometry const stated = headerWith("Offset = 1 2 3\nTransformMatrix = 1 0 0 0 1 0 0 0 1\n").geometry;
    EXPECT_FALSE(assumed.areAxesKnown);
    EXPECT_TRUE(stated.areAxesKnown);
    EXPECT_EQ(assumed.axes, stated.axes);
    EXPECT_EQ(assumed.spacing, stated.spacing);
    EXPECT_EQ(assumed.origin, stated.origin);
    EXPECT_FALSE(stated.isSpacingKnown);
    EXPECT_TRUE(stated.isOriginKnown);
}

TEST_F(MetaImageFile, GivesTheDirectionOfEachAxisInARow) {
    for (std::string const name : {"TransformMatrix", "Rotation", "Orientation"}) {
        GridGeometry const geometry = headerWith(name + " = 0 2 0 0 0 1 1 0 0\nElementSize = 4 5 6\n").geometry;
        EXPECT_EQ(geometry.axes, (std::array<Vector3, 3>{{{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}})) << name;
        EXPECT_EQ(geometry.spacing, (Vector3{4, 5, 6}));
        EXPECT_TRUE(geometry.isSpacingKnown);
    }
}

TEST_F(MetaImageFile, NotesDirectionsThatAreNotOfLengthOne) {
    EXPECT_TRUE(headerWith("TransformMatrix = 1 0 0 0 1 0 0.6 0 0.8\n").notes.empty());
    auto const longer = headerWith("TransformMatrix = 2 0 0 0 2 0 0 0 2\n");
    EXPECT_EQ(longer.geometry.spacing, (tamo::Vector3{1, 1, 1}));
    EXPECT_NE(longer.notes.at(0).find("not of length 1"), std::string::npos);
}

TEST_F(MetaImageFile, KeepsShearedAxesAndRefusesFlatOnes) {
    GridGeometry const geometry = headerWith("TransformMatrix = 1 0 0 0 1 0 0.6 0 0.8\n").geometry;
    EXPECT_NEAR(geometry.axes[2][0], 0.6, 1e-12);
    for (std::string const matrix :
         {"1 0 0 2 0 0 0 0 1", "0 0 0 0 1 0 0 0 1", "1 0 0 0 1 0 0 0 nan", "1 0 0 0 1 0 0 0"}) {
        std::string const line =
            refusalWith(kSize + "TransformMatrix = " + matrix + "\nElementDataFile = LOCAL\nabcdefgh");
        EXPECT_NE(line.find("\"TransformMatrix\""), std::string::npos) << line;
    }
}

TEST_F(MetaImageFile, TakesLettersOfOrientationForAHintOnly) {
    EXPECT_EQ(headerWith("AnatomicalOrientation = RAI\n").notes.size(), 1U);
    EXPECT_FALSE(headerWith("AnatomicalOrientation = RAI\n").geometry.areAxesKnown);
    EXPECT_TRUE(headerWith("AnatomicalOrientation = ???\n").notes.empty());
    EXPECT_TRUE(headerWith("AnatomicalOrientation = RAS\nRotation = 1 0 0 0 1 0 0 0 1\n").notes.empty());
}

TEST_F(MetaImageFile, GivesLengthsInMillimetres) {
    GridGeometry const geometry =
        headerWith("DistanceUnits = um\nElementSpacing = 500 -250 1000\nOrigin = 1000 0 0\n").geometry;
    EXPECT_EQ(geometry.spacing, (Vector3{0.5, 0.25, 1}));
    EXPECT_EQ(geometry.axes[1], (Vector3{0, -1, 0}));
    EXPECT_EQ(geometry.origin, (Vector3{1, 0, 0}));
    EXPECT_EQ(geometry.fileUnit, "um");
    EXPECT_EQ(headerWith("DistanceUnits = ?\n").geometry.fileUnit, "");
}

TEST_F(MetaImageFile, RefusesFieldsThatAreNotWhatTheyShouldBe) {
    std::string const end = "ElementDataFile = LOCAL\nabcdefgh";
    std::vector<std::pair<std::string, std::string>> const refused{
        {"NDims", "NDims = 2\nElementType = MET_UCHAR\nDimSize = 2 2\n"},
        {"NDims", "NDims = 5\nElementType = MET_UCHAR\nDimSize = 2 2 2 1 1\n"},
        {"DimSize", "NDims = 3\nElementType = MET_UCHAR\nDimSize = 2 2\n"},
        {"ElementType", "NDims = 3\nElementType = MET_UCHAR_ARRAY\nDimSize = 2 2 2\n"},
        {"ElementNumberOfChannels", kSize + "ElementNumberOfChannels = 3\n"},
        {"HeaderSize", kSize + "HeaderSize = -2\n"},
        {"Offset", kSize + "Offset = 0 0 inf\n"}};
    for (auto const& [field, header] : refused) {
        std::string const line = refusalWith(header + end);
        EXPECT_NE(line.find("\"" + field + "\""), std::string::npos) << field << ": " << line;
    }
    EXPECT_NE(refusalWith(kSize + "ElementSpacing = 1 0 1\n" + end), "");
}

TEST_F(MetaImageFile, HoldsEveryType) {
    std::vector<std::pair<std::string, ScalarType>> const types{
        {"MET_CHAR", ScalarType::Int8},       {"MET_USHORT", ScalarType::UInt16},
        {"MET_LONG", ScalarType::Int32},      {"MET_UINT", ScalarType::UInt32},
        {"MET_LONG_LONG", ScalarType::Int64}, {"MET_ULONG_LONG", ScalarType::UInt64},
        {"MET_FLOAT", ScalarType::Float32},   {"MET_DOUBLE", ScalarType::Float64}};
    for (auto const& [name, type] : types) {
        writeFile(_folder / "a.mha", "NDims = 3\r\nDimSize = 2 2 2\r\nElementType = " + name +
                                         "\r\nBinaryData = False\r\nElementDataFile = LOCAL\r\n1 2 3 4 5 6 7 8");
        Volume const volume = readWhole(_folder / "a.mha");
        EXPECT_EQ(volume.header.type, type);
        EXPECT_EQ(valueAt(volume, 1, 1, 1), 8) << name;
    }
}

TEST_F(MetaImageFile, CountsItsHeaderSizeFromTheBeginningOfItsDataOrFromTheEnd) {
    writeFile(_folder / "a.data", "xyzabcdefgh");
    EXPECT_EQ(textOf(kSize + "HeaderSize = 3\nElementDataFile = a.data\n"), "abcdefgh");
    EXPECT_EQ(textOf(kSize + "HeaderSize = -1\nElementDataFile = a.data\n"), "abcdefgh");
    EXPECT_EQ(textOf(kSize + "HeaderSize = -1\nElementDataFile = LOCAL\nmany more before abcdefgh"), "abcdefgh");
    // What follows the voxels is left alone.
    EXPECT_EQ(textOf(kSize + "ElementDataFile = a.data\n"), "xyzabcde");
}

TEST_F(MetaImageFile, KnowsHowManyBytesAreCompressed) {
    std::string const packed = zlibbed("abcdefgh");
    auto const header = [&](std::size_t bytes, std::string const& more) {
        return kSize + "CompressedData = True\nCompressedDataSize = " + std::to_string(bytes) + "\n" + more +
               "ElementDataFile = a.zraw\n";
    };
    writeFile(_folder / "a.zraw", "before" + packed);
    EXPECT_EQ(textOf(header(packed.size(), "HeaderSize = 6\n")), "abcdefgh");
    EXPECT_EQ(textOf(header(packed.size(), "HeaderSize = -1\n")), "abcdefgh");
    writeFile(_folder / "a.mhd", header(packed.size() + 1, "HeaderSize = 6\n"));
    EXPECT_NE(refusalOf(_folder / "a.mhd").find("a.zraw: expected"), std::string::npos);
}

} // namespace
