// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

namespace fs = std::filesystem;

class BadFile : public testing::Test {
  protected:
    TemporaryFolder _folder;
};

TEST_F(BadFile, FilesThatHoldNoVolume) {
    fs::create_directory(_folder / "empty");
    writeBytes(_folder / "a.xyz", "text");
    for (char const* const ending : {"nii", "nii.gz", "mha", "mhd", "nrrd", "nhdr", "tif", "vti"}) {
        writeBytes(_folder / (std::string("text.") + ending), "This is text, many words of it, and not a volume.\n\n");
    }
    for (std::string const name : {"missing.nii", "a.xyz", "empty", "text.nii", "text.nii.gz", "text.mha", "text.mhd",
                                   "text.nrrd", "text.nhdr", "text.tif", "text.vti"}) {
        ToolRun const run = runTool({"info", (_folder / name).string()});
        EXPECT_TRUE(isInputRefusal(run, name)) << run.status << " " << run.error;
    }
}

TEST_F(BadFile, NamesThatNoFileHas) {
    std::string const name(300, 'x');
    ToolRun const run = runTool({"info", (_folder / name).string()});
    EXPECT_TRUE(isInputRefusal(run, name + ": expected")) << run.status << " " << run.error;
}

TEST_F(BadFile, VolumesThatNoMemoryHolds) {
    // Sides of 32767 voxels, far more than the file has.
    fileFormats().front().write(makeSamples(8, 7, 6), _folder / "a.nii");
    std::string bytes = readBytes(_folder / "a.nii");
    constexpr std::size_t kSides = 42;
    writeBytes(_folder / "a.nii", bytes.replace(kSides, 6, "\xFF\x7F\xFF\x7F\xFF\x7F"));
    ToolRun const run = runTool({"info", (_folder / "a.nii").string()});
    EXPECT_TRUE(isInputRefusal(run, "a.nii")) << run.status << " " << run.error;
}

TEST_F(BadFile, HeaderFieldsThatAreNotWhatTheyShouldBe) {
    auto const expectFieldRefused = [this](std::string const& file, std::string const& text, std::string const& field) {
        writeBytes(_folder / file, text + "abcdefghijklmnop");
        ToolRun const run = runTool({"info", (_folder / file).string()});
        EXPECT_TRUE(isInputRefusal(run, "\"" + field + "\"")) << text << run.status << " " << run.error;
    };
    std::string const nrrd = "NRRD0004\ndimension: 3\nencoding: raw\n";
    for (char const* const sizes : {"2.5 2 2", "2 2", "0 2 2", "-2 2 2", "1e300 2 2", "nan 2 2", "2 2 x"}) {
        expectFieldRefused("a.nrrd", nrrd + "type: uchar\nsizes: " + sizes + "\n\n", "sizes");
        std::string const sides(sizes);
        expectFieldRefused("a.mha",
                           "NDims = 3\nElementType = MET_UCHAR\nDimSize = " + sides + "\nElementDataFile = LOCAL\n",
                           "DimSize");
    }
    for (char const* const skip : {"1e30", "-2", "0.5", "nan", "x"}) {
        expectFieldRefused("a.nrrd", nrrd + "type: uchar\nsizes: 2 2 2\nbyte skip: " + skip + "\n\n", "byte skip");
        expectFieldRefused("a.nrrd", nrrd + "type: uchar\nsizes: 2 2 2\nline skip: " + skip + "\n\n", "line skip");
        expectFieldRefused("a.mha",
                           "NDims = 3\nElementType = MET_UCHAR\nDimSize = 2 2 2\nHeaderSize = " + std::string(skip) +
                               "\nElementDataFile = LOCAL\n",
                           "HeaderSize");
    }
    expectFieldRefused("a.nrrd", nrrd + "type: short\nsizes: 2 2 2\nendian: middle\n\n", "endian");
}

TEST_F(BadFile, NumbersPastTheVoxelsType) {
    std::vector<std::pair<std::string, std::vector<std::string>>> const refused{
        {"uchar", {"256", "-1", "1.5", "+-1", "+", "x", ""}},
        {"signed char", {"128", "-129", "nan"}},
        {"ushort", {"65536", "-5"}},
        {"short", {"32768", "-32769"}},
        {"uint", {"4294967296", "-5"}},
        {"int", {"2147483648", "-2147483649"}},
        {"ulonglong", {"18446744073709551616", "-5"}},
        {"longlong", {"9223372036854775808", "1e3"}},
        {"float", {"1e39", "-1e39", "1.5x", "x", "--1", "nano"}},
        {"double", {"1e309", "1,5"}}};
    for (auto const& [type, numbers] : refused) {
        for (std::string const& last : numbers) {
            writeBytes(_folder / "a.nrrd", "NRRD0004\ndimension: 3\nencoding: ascii\ntype: " + type +
                                               "\nsizes: 2 2 2\n\n1 2 3 4 5 6 7 " + last);
            ToolRun const run = runTool({"info", (_folder / "a.nrrd").string()});
            EXPECT_TRUE(isInputRefusal(run, "a.nrrd")) << type << " " << last << run.output;
        }
    }
}

TEST_F(BadFile, FlatImages) {
    for (FileFormat const& format : fileFormats()) {
        TemporaryFolder const folder;
        format.write(makeSamples(8, 7, 1), folder / format.fileName);
        ToolRun const run = runTool({"info", (folder / format.fileName).string()});
        EXPECT_TRUE(isInputRefusal(run, "3-D")) << format.name << run.status << " " << run.error;
    }
}

TEST_F(BadFile, BareVoxelsOfAnotherNumber) {
    writeBytes(_folder / "a.raw", std::string(24, 'x'));
    std::string const volume = (_folder / "a.raw").string();
    EXPECT_TRUE(isInputRefusal(runTool({"info", volume, "--dims", "2,3,5", "--type", "uint8"}), "a.raw"));
    EXPECT_TRUE(isInputRefusal(runTool({"info", volume, "--dims", "2,3,3", "--type", "uint8"}), "a.raw"));
    EXPECT_TRUE(isInputRefusal(
        runTool({"info", volume, "--dims", "2000000000,2000000000,2000000000", "--type", "float64"}), "a.raw"));
    EXPECT_EQ(runTool({"info", volume, "--dims", "2,3,4", "--type", "uint8"}).status, 0);
}

} // namespace
