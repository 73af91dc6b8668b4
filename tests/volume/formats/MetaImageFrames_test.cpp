// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::Volume;
using tamo::volume::VolumeSource;

std::string const kSize = "NDims = 3\nElementType = MET_UCHAR\nDimSize = 2 2 2\n";
std::string const kFrames = "NDims = 4\nElementType = MET_UCHAR\nDimSize = 2 2 2 3\nElementSpacing = 1 2 3 4\n";

class MetaImageFrames : public testing::Test {
  protected:
    VolumeSource sourceOf(std::string const& header, std::optional<std::int64_t> frame = {}) {
        writeFile(_folder / "a.mhd", header);
        VolumeSource source;
        source.path = _folder / "a.mhd";
        source.frame = frame;
        return source;
    }
    std::string textOf(std::string const& header, std::optional<std::int64_t> frame = {}) {
        Volume const volume = readWhole(sourceOf(header, frame));
        return {reinterpret_cast<char const*>(volume.voxels), volume.bytes()};
    }
    std::string lineOf(std::string const& header, std::optional<std::int64_t> frame = {}) {
        return refusalOf(sourceOf(header, frame));
    }

    TemporaryFolder _folder;
};

TEST_F(MetaImageFrames, AreChosenByNumber) {
    std::string const header = kFrames + "ElementDataFile = LOCAL\nabcdefghABCDEFGH01234567";
    EXPECT_EQ(textOf(header, 0), "abcdefgh");
    EXPECT_EQ(textOf(header, 2), "01234567");
    Volume const volume = readWhole(sourceOf(header, 1));
    EXPECT_EQ(volume.header.frames, 3);
    EXPECT_EQ(volume.header.frame, 1);
    EXPECT_EQ(volume.header.geometry.spacing, (tamo::Vector3{1, 2, 3}));
}

TEST_F(MetaImageFrames, AreListedWhereNoneOrAnotherIsAskedFor) {
    std::string const header = kFrames + "ElementDataFile = LOCAL\nabcdefghABCDEFGH01234567";
    for (auto const frame :
         {std::optional<std::int64_t>(), std::optional<std::int64_t>(3), std::optional<std::int64_t>(-1)}) {
        std::string const line = lineOf(header, frame);
        EXPECT_NE(line.find("3 frames; choose one with --frame 0 to 2"), std::string::npos) << line;
    }
    EXPECT_NE(lineOf(kSize + "ElementDataFile = LOCAL\nabcdefgh", 1), "");
    EXPECT_EQ(textOf(kSize + "ElementDataFile = LOCAL\nabcdefgh", 0), "abcdefgh");
}

TEST_F(MetaImageFrames, LieInOneSpaceApartFromTheirAxis) {
    std::string const data = "ElementDataFile = LOCAL\nabcdefghABCDEFGH01234567";
    EXPECT_EQ(lineOf(kFrames + "TransformMatrix = 0 1 0 0  1 0 0 0  0 0 1 0  0 0 0 1\n" + data, 0), "");
    EXPECT_NE(lineOf(kFrames + "TransformMatrix = 0 1 0 0  1 0 0 0  0 0 1 1  0 0 0 1\n" + data, 0), "");
    EXPECT_NE(lineOf(kFrames + "TransformMatrix = 0 1 0 0  1 0 0 0  0 0 1 0  0 1 0 1\n" + data, 0), "");
}

TEST_F(MetaImageFrames, StandInOneFileEachOrInOnePerSlice) {
    for (std::string const name : {"a0", "a1", "a2"}) {
        writeFile(_folder / name, "abcdefg" + name.substr(1));
    }
    EXPECT_EQ(textOf(kFrames + "ElementDataFile = LIST\na0\na1\na2\n", 2), "abcdefg2");
    EXPECT_EQ(textOf(kFrames + "ElementDataFile = LIST 3\na0\na1\na2", 1), "abcdefg1");
    EXPECT_EQ(textOf(kFrames + "ElementDataFile = a%d 0 2 1\n", 1), "abcdefg1");
    EXPECT_EQ(textOf(kFrames + "ElementDataFile = LIST 2D\na0\na0\na0\na1\na2\na1\n", 1), "abcdabcd");
}

TEST_F(MetaImageFrames, OfSlicesInTheirFilesAreCounted) {
    writeFile(_folder / "s1", "abcd");
    writeFile(_folder / "s3", "efgh");
    EXPECT_EQ(textOf(kSize + "ElementDataFile = s%d 1 3 2\n"), "abcdefgh");
    EXPECT_EQ(textOf(kSize + "ElementDataFile = s%d 3 1 -2\n"), "efghabcd");
    EXPECT_EQ(textOf(kSize + "ElementDataFile = LIST\r\ns3\r\ns1\r\n"), "efghabcd");
    EXPECT_NE(lineOf(kSize + "ElementDataFile = LIST\ns1\n").find("2 files of voxels, found 1"), std::string::npos);
    EXPECT_NE(lineOf(kSize + "ElementDataFile = LIST\ns1\ns3\ns3\n").find("2 files of voxels, found 3"),
              std::string::npos);
    EXPECT_NE(lineOf(kSize + "ElementDataFile = s%d 1 3 1\n").find("2 files of voxels, found 3"), std::string::npos);
    EXPECT_NE(lineOf(kSize + "ElementDataFile = LIST 1\ns1\ns3\n"), "");
}

TEST_F(MetaImageFrames, NameTheFileThatIsMissingOrTooShort) {
    writeFile(_folder / "s1", "abcd");
    EXPECT_NE(lineOf(kSize + "ElementDataFile = LIST\ns1\ns2\n").find("s2: expected"), std::string::npos);
    EXPECT_NE(lineOf(kSize + "ElementDataFile = s%d 1 2 1\n").find("s2: expected"), std::string::npos);
    EXPECT_NE(lineOf(kSize + "ElementDataFile = s2\n").find("s2: expected"), std::string::npos);
    writeFile(_folder / "s2", "efg");
    EXPECT_NE(lineOf(kSize + "ElementDataFile = LIST\ns1\ns2\n").find("s2: expected"), std::string::npos);
}

} // namespace
