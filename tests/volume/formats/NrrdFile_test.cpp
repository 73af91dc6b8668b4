// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/gzipped.h"
#include "volume/support/packed.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::ScalarType;
using tamo::volume::Volume;
using tamo::volume::VolumeSource;

std::string const kSize = "NRRD0004\ndimension: 3\nencoding: raw\ntype: uchar\nsizes: 2 2 2\n";
std::string const kFrames = "NRRD0004\ndimension: 4\nencoding: raw\ntype: uchar\n";

class NrrdFile : public testing::Test {
  protected:
    VolumeSource sourceOf(std::string const& text, std::optional<std::int64_t> frame = {}) {
        writeFile(_folder / "a.nrrd", text);
        VolumeSource source;
        source.path = _folder / "a.nrrd";
        source.frame = frame;
        return source;
    }
    std::string textOf(std::string const& text, std::optional<std::int64_t> frame = {}) {
        Volume const volume = readWhole(sourceOf(text, frame));
        return {reinterpret_cast<char const*>(volume.voxels), volume.bytes()};
    }
    std::string lineOf(std::string const& text, std::optional<std::int64_t> frame = {}) {
        return refusalOf(sourceOf(text, frame));
    }

    TemporaryFolder _folder;
};

TEST_F(NrrdFile, SaysHowManyBytesOrLinesPrecedeTheVoxels) {
    EXPECT_EQ(textOf(kSize + "\nabcdefgh"), "abcdefgh");
    EXPECT_EQ(textOf(kSize + "byte skip: 3\n\nxyzabcdefgh"), "abcdefgh");
    EXPECT_EQ(textOf(kSize + "byteskip: -1\n\nmany more before abcdefgh"), "abcdefgh");
    EXPECT_EQ(textOf(kSize + "line skip: 2\nbyte skip: 1\n\none\ntwo\nxabcdefgh"), "abcdefgh");
    // What follows the voxels is left alone.
    EXPECT_EQ(textOf(kSize + "\nabcdefghijk"), "abcdefgh");
}

TEST_F(NrrdFile, HoldsVoxelsInEveryEncoding) {
    std::string const size = "NRRD0004\ndimension: 3\ntype: uint8\nsizes: 2 2 2\nencoding: ";
    EXPECT_EQ(textOf(size + "GZ\nbyte skip: 2\n\n" + gzipped("xyabcdefgh")), "abcdefgh");
    EXPECT_EQ(textOf(size + "gzip\nbyte skip: -1\n\n" + zlibbed("abcdefgh")), "abcdefgh");
    EXPECT_EQ(textOf(size + "bz2\n\n" + bzipped("abcdefgh")), "abcdefgh");
    EXPECT_EQ(textOf(size + "hex\n\n61 62 63 64\n65666768\n"), "abcdefgh");
    for (std::string const encoding : {"ascii", "text", "txt"}) {
        EXPECT_EQ(textOf(size + encoding + "\n\n97 98 99 100\n101 102 103 104"), "abcdefgh");
    }
    EXPECT_NE(lineOf(size + "lzma\n\nabcdefgh").find("\"encoding\""), std::string::npos);
}

TEST_F(NrrdFile, HoldsEveryTypeByAnyOfItsNames) {
    std::vector<std::pair<std::string, ScalarType>> const types{{"signed char", ScalarType::Int8},
                                                                {"short int", ScalarType::Int16},
                                                                {"unsigned short int", ScalarType::UInt16},
                                                                {"signed int", ScalarType::Int32},
                                                                {"uint32_t", ScalarType::UInt32},
                                                                {"signed long long int", ScalarType::Int64},
                                                                {"unsigned long long", ScalarType::UInt64},
                                                                {"float", ScalarType::Float32},
                                                                {"double", ScalarType::Float64},
                                                                {"int16", ScalarType::Int16}};
    for (auto const& [name, type] : types) {
        Volume const volume = readWhole(
            sourceOf("NRRD0004\ndimension: 3\nencoding: ascii\ntype: " + name + "\nsizes: 2 2 2\n\n1 2 3 4 5 6 7 8"));
        EXPECT_EQ(volume.header.type, type) << name;
        EXPECT_EQ(valueAt(volume, 1, 1, 1), 8) << name;
    }
    EXPECT_NE(lineOf("NRRD0004\ndimension: 3\nencoding: raw\ntype: block\nsizes: 2 2 2\n\nabcdefgh").find("\"type\""),
              std::string::npos);
}

TEST_F(NrrdFile, RefusesFieldsThatAreNotWhatTheyShouldBe) {
    std::string const types = "NRRD0004\ndimension: 3\nencoding: raw\ntype: ";
    std::vector<std::pair<std::string, std::string>> const refused{
        {"sizes", types + "uchar\nsizes: 2 2\n"},
        {"sizes", types + "uchar\nsizes: 0 2 2\n"},
        {"byte skip", kSize + "byte skip: -2\n"},
        {"line skip", kSize + "line skip: 0.5\n"},
        {"endian", types + "short\nsizes: 2 2 2\nendian: middle\n"},
        {"endian", types + "short\nsizes: 2 2 2\n"},
        {"space directions", kSize + "space directions: (1,0,0) (2,0,0) (0,0,1)\n"},
        {"space origin", kSize + "space origin: (1,2)\n"}};
    for (auto const& [field, header] : refused) {
        std::string const line = lineOf(header + "\nabcdefghijklmnop");
        EXPECT_NE(line.find("\"" + field + "\""), std::string::npos) << field << ": " << line;
    }
}

TEST_F(NrrdFile, HoldsFramesBehindEachOtherOrInTurns) {
    std::string const behind = kFrames + "sizes: 2 2 2 3\nkinds: domain domain domain time\n\nabcdefghABCDEFGH01234567";
    EXPECT_EQ(textOf(behind, 1), "ABCDEFGH");
    std::string const turns = kFrames + "sizes: 3 2 2 2\nkinds: list domain domain domain\n\naA0bB1cC2dD3eE4fF5gG6hH7";
    EXPECT_EQ(textOf(turns, 0), "abcdefgh");
    EXPECT_EQ(textOf(turns, 2), "01234567");
    auto const file = tamo::volume::openVolume(sourceOf(turns, 1), {});
    Volume const part = file->read({{1, 0, 0}, {1, 1, 1}}, {});
    EXPECT_EQ(std::string(reinterpret_cast<char const*>(part.voxels), 4), "BDFH");
    for (std::string const& text : {behind, turns}) {
        EXPECT_NE(lineOf(text).find("3 frames; choose one with --frame 0 to 2"), std::string::npos);
        EXPECT_NE(lineOf(text, 3).find("3 frames; choose one with --frame 0 to 2"), std::string::npos);
    }
}

TEST_F(NrrdFile, MayStandInSeveralFiles) {
    writeFile(_folder / "s1", "xabcd");
    writeFile(_folder / "s2", "xefgh");
    std::string const size = kSize + "byte skip: 1\n";
    EXPECT_EQ(textOf(size + "data file: LIST\ns1\ns2\n"), "abcdefgh");
    EXPECT_EQ(textOf(size + "datafile: LIST 2\ns2\ns1"), "efghabcd");
    EXPECT_EQ(textOf(size + "data file: LIST 3\ns1\ns2"), "abcdefgh");
    EXPECT_EQ(textOf(size + "data file: s%d 2 1 -1\n"), "efghabcd");
    EXPECT_EQ(textOf(size + "data file: s%d 1 2 1 2\n\n"), "abcdefgh");
    EXPECT_NE(lineOf(size + "data file: LIST\ns1\n").find("2 files of voxels, found 1"), std::string::npos);
    EXPECT_NE(lineOf(size + "data file: LIST 3\ns1\ns1\ns1\n"), "");
    EXPECT_NE(lineOf(size + "data file: LIST 1\ns1\ns2\n"), "");
    EXPECT_NE(lineOf(size + "data file: s%d 1 3 1\n").find("2 files of voxels, found 3"), std::string::npos);
    EXPECT_NE(lineOf(size + "data file: s%d 2 3 1\n").find("s3: expected"), std::string::npos);
    EXPECT_NE(lineOf(size + "data file: s9\n").find("s9: expected"), std::string::npos);
}

TEST_F(NrrdFile, MayHaveFramesInSeveralFiles) {
    writeFile(_folder / "s1", "abcdefgh");
    writeFile(_folder / "s2", "ABCDEFGH");
    std::string const behind = kFrames + "sizes: 2 2 2 2\n";
    EXPECT_EQ(textOf(behind + "data file: LIST\ns1\ns2\n", 1), "ABCDEFGH");
    EXPECT_EQ(textOf(behind + "data file: LIST 4\ns1\ns2\n", 1), "ABCDEFGH");
    std::string const turns = behind + "kinds: list domain domain domain\n";
    EXPECT_EQ(textOf(turns + "data file: LIST\ns1\ns2\n", 1), "bdfhBDFH");
    EXPECT_NE(lineOf(turns + "data file: LIST 2\ns1\ns2\ns1\ns2\n", 1), "");
}

TEST_F(NrrdFile, IsRefusedBeforeMemoryIsTakenForVoxelsItCannotHold) {
    for (std::string const encoding : {"raw", "gzip", "bzip2", "hex", "ascii"}) {
        std::string const line = lineOf("NRRD0004\ndimension: 3\nencoding: " + encoding +
                                        "\ntype: uchar\nsizes: 65536 65536 65536\n\nabcdefgh");
        EXPECT_NE(line.find("the file is damaged or truncated"), std::string::npos) << line;
    }
}

} // namespace
