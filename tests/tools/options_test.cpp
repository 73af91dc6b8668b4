// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ToolRun.h"
#include "VolumeFiles.h"

#include <gtest/gtest.h>

#include <csignal>

namespace {

namespace fs = std::filesystem;

// A folder with a volume of 8 x 7 x 6 voxels and a place for a picture.
class BadInput : public testing::Test {
  protected:
    BadInput() {
        fileFormats().front().write(makeSamples(8, 7, 6), _folder / "a.nii");
        fs::create_directory(_folder / "out");
    }

    [[nodiscard]] ToolRun render(std::vector<std::string> const& options) const {
        std::vector<std::string> arguments{"render", (_folder / "a.nii").string(), "-o",
                                           (_folder / "out" / "a.png").string()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runTool(arguments);
    }

    void expectRefused(std::vector<std::string> const& options, std::string const& named) const {
        ToolRun const run = render(options);
        EXPECT_TRUE(isOneLineRefusal(run, named)) << testing::PrintToString(options) << run.status << " " << run.error;
        EXPECT_TRUE(fs::is_empty(_folder / "out"));
    }

    TemporaryFolder _folder;
};

TEST_F(BadInput, ValuesThatAreNotWhatAnOptionTakes) {
    for (char const* const option : {"--min", "--max", "--step", "--box", "--size", "--view", "--spacing", "--dims"}) {
        for (char const* const value : {"abc", "1.5.2", "1,,2", "1e999", "0x12", "nan", " 1"}) {
            expectRefused({option, value}, option);
        }
    }
    expectRefused({"--step", "99999999999999999999"}, "--step");
}

TEST_F(BadInput, OptionsWithoutAValueOrGivenTwice) {
    for (char const* const option : {"--min", "--max", "--step", "--box", "--size", "--view", "--spacing", "--dims",
                                     "--type", "--header", "--adjacency"}) {
        expectRefused({option, ""}, std::string(option) + ": expected");
        expectRefused({option}, std::string(option) + ": expected");
        expectRefused({option, "1", option, "1"}, std::string(option) + ": expected");
    }
    EXPECT_TRUE(isOneLineRefusal(runTool({"info", ""}), "volume: expected"));
}

TEST_F(BadInput, StepsThatFitNoBox) {
    expectRefused({"--step", "0"}, "--step");
    expectRefused({"--step", "-1"}, "--step");
    expectRefused({"--step", "7"}, "--step");
    expectRefused({"--step", "3", "--box", "0,0,0,7,6,1"}, "--step");
}

TEST_F(BadInput, BoxesThatDoNotLieInTheVolume) {
    for (char const* const box :
         {"0,0,0,8,6,5", "0,0,0,7,7,5", "0,0,0,7,6,6", "-1,0,0,7,6,5", "5,0,0,4,6,5", "0,0,0"}) {
        expectRefused({"--box", box}, "--box");
    }
}

TEST_F(BadInput, RangesWithoutVoxels) {
    expectRefused({"--min", "5", "--max", "4"}, "--min");
    expectRefused({"--min", "4001"}, "a.nii");
    expectRefused({"--max", "-1"}, "--max");
}

TEST_F(BadInput, UnknownSystems) {
    for (char const* const name : {"N7", "N14", "17", "8", "NN6", "n 6", "N6,7", "N6;N26"}) {
        expectRefused({"--adjacency", name}, "--adjacency");
    }
}

TEST_F(BadInput, SizesOfNoPicture) {
    for (char const* const size : {"0x10", "10x0", "10", "10x", "10x10x10", "16385x10", "-5x5"}) {
        expectRefused({"--size", size}, "--size");
    }
    expectRefused({"--view", "0,91"}, "--view");
    expectRefused({"--spacing", "1,0,1"}, "--spacing");
}

TEST_F(BadInput, UnknownOptionsAndCommands) {
    expectRefused({"--colour", "red"}, "--colour");
    expectRefused({"another"}, "another");
    EXPECT_TRUE(isOneLineRefusal(runTool({}), "info"));
    EXPECT_TRUE(isOneLineRefusal(runTool({"draw"}), "info"));
    EXPECT_TRUE(isOneLineRefusal(runTool({"info"}), "volume"));
    EXPECT_TRUE(isOneLineRefusal(runTool({"render", "a.nii"}), "--output"));
}

TEST_F(BadInput, PlacesWhereNoPictureCanBeWritten) {
    std::string const volume = (_folder / "a.nii").string();
    for (std::string const output : {"missing/a.png", "out", "a.nii/a.png", "picture.jpg"}) {
        ToolRun const run = runTool({"render", volume, "-o", (_folder / output).string()});
        EXPECT_TRUE(isOneLineRefusal(run, "--output")) << output << run.error;
    }
}

TEST_F(BadInput, FilesThatHoldNoVolume) {
    fs::create_directory(_folder / "empty");
    writeBytes(_folder / "a.xyz", "text");
    for (char const* const ending : {"nii", "nii.gz", "mha", "mhd", "nrrd", "nhdr", "tif", "vti"}) {
        writeBytes(_folder / (std::string("text.") + ending), "This is text, many words of it, and not a volume.\n\n");
    }
    for (std::string const name : {"missing.nii", "a.xyz", "empty", "text.nii", "text.nii.gz", "text.mha", "text.mhd",
                                   "text.nrrd", "text.nhdr", "text.tif", "text.vti"}) {
        ToolRun const run = runTool({"info", (_folder / name).string()});
        EXPECT_TRUE(isOneLineRefusal(run, name)) << run.status << " " << run.error;
    }
}

TEST_F(BadInput, VolumesThatNoMemoryHolds) {
    // Sides of 32767 voxels, far more than the file has.
    std::string bytes = readBytes(_folder / "a.nii");
    constexpr std::size_t kSides = 42;
    writeBytes(_folder / "a.nii", bytes.replace(kSides, 6, "\xFF\x7F\xFF\x7F\xFF\x7F"));
    ToolRun const run = runTool({"info", (_folder / "a.nii").string()});
    EXPECT_TRUE(isOneLineRefusal(run, "a.nii")) << run.status << " " << run.error;
}

TEST_F(BadInput, HeaderFieldsThatAreNotWhatTheyShouldBe) {
    auto const expectFieldRefused = [this](std::string const& file, std::string const& text, std::string const& field) {
        writeBytes(_folder / file, text + "abcdefghijklmnop");
        ToolRun const run = runTool({"info", (_folder / file).string()});
        EXPECT_TRUE(isOneLineRefusal(run, "\"" + field + "\"")) << text << run.status << " " << run.error;
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

TEST_F(BadInput, NumbersPastTheVoxelsType) {
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
            EXPECT_TRUE(isOneLineRefusal(run, "a.nrrd")) << type << " " << last << run.output;
        }
    }
}

TEST_F(BadInput, FlatImages) {
    for (FileFormat const& format : fileFormats()) {
        TemporaryFolder const folder;
        format.write(makeSamples(8, 7, 1), folder / format.fileName);
        ToolRun const run = runTool({"info", (folder / format.fileName).string()});
        EXPECT_TRUE(isOneLineRefusal(run, "3-D")) << format.name << run.status << " " << run.error;
    }
}

TEST_F(BadInput, BareVoxelsOfAnotherNumber) {
    writeBytes(_folder / "a.raw", std::string(24, 'x'));
    std::string const volume = (_folder / "a.raw").string();
    EXPECT_TRUE(isOneLineRefusal(runTool({"info", volume, "--dims", "2,3,5", "--type", "uint8"}), "a.raw"));
    EXPECT_TRUE(isOneLineRefusal(runTool({"info", volume, "--dims", "2,3,3", "--type", "uint8"}), "a.raw"));
    EXPECT_TRUE(isOneLineRefusal(runTool({"info", volume, "--dims", "2,3,4", "--type", "int12"}), "--type"));
    EXPECT_TRUE(isOneLineRefusal(runTool({"info", volume, "--dims", "2,3,4"}), "--type"));
    EXPECT_TRUE(isOneLineRefusal(runTool({"info", volume, "--dims", "2,0,4", "--type", "uint8"}), "--dims"));
    EXPECT_TRUE(isOneLineRefusal(
        runTool({"info", volume, "--dims", "2000000000,2000000000,2000000000", "--type", "float64"}), "a.raw"));
    EXPECT_EQ(runTool({"info", volume, "--dims", "2,3,4", "--type", "uint8"}).status, 0);
}

TEST(Interruption, LeavesNoPartOfAPicture) {
    TemporaryFolder const folder;
    fs::create_directory(folder / "out");
    Samples const samples = makeSamples(120, 120, 120);
    writeBytes(folder / "a.raw", rawBytes(samples, /*isBigEndian=*/false));
    // The unfinished picture tells that the run is under way, however fast or busy the machine.
    ToolRun const run = interruptTool({"render", (folder / "a.raw").string(), "--dims", "120,120,120", "--type",
                                       "int16", "-o", (folder / "out" / "a.png").string()},
                                      [&folder] { return !fs::is_empty(folder / "out"); });
    EXPECT_EQ(run.status, 128 + SIGINT) << run.error;
    EXPECT_EQ(run.error, "tamo: cancelled; no picture was written\n");
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

TEST(Help, IsPrintedOnStandardOutput) {
    for (std::vector<std::string> const& arguments :
         {std::vector<std::string>{"--help"}, {"info", "--help"}, {"render", "--help"}}) {
        ToolRun const run = runTool(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.error, "");
        EXPECT_NE(run.output.find("xample"), std::string::npos);
    }
    EXPECT_EQ(runTool({"--version"}).output.compare(0, 5, "tamo "), 0);
}

} // namespace
