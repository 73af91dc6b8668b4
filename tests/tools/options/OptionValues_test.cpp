// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// Options of a render whose volume does not exist: they are judged before it is looked for.
class BadValue : public testing::Test {
  protected:
    void expectRefused(std::vector<std::string> const& options, std::string const& named) const {
        std::vector<std::string> arguments{"render", (_folder / "missing.nii").string(), "-o",
                                           (_folder / "a.png").string()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        ToolRun const run = runTool(arguments);
        EXPECT_TRUE(isUsageRefusal(run, named)) << testing::PrintToString(options) << run.status << " " << run.error;
        EXPECT_TRUE(fs::is_empty(_folder.path()));
    }

    TemporaryFolder _folder;
};

TEST_F(BadValue, ValuesThatAreNotWhatAnOptionTakes) {
    for (char const* const option : {"--min", "--max", "--step", "--box", "--size", "--view", "--spacing", "--dims"}) {
        for (char const* const value : {"abc", "1.5.2", "1,,2", "1e999", "0x12", "nan", " 1"}) {
            expectRefused({option, value}, option);
        }
    }
    expectRefused({"--step", "99999999999999999999"}, "--step");
}

TEST_F(BadValue, NumbersTooLargeWithTheLargestThatIsTaken) {
    expectRefused({"--step", "99999999999"}, "--step 99999999999: expected a whole number from 1 to 2147483647");
    expectRefused({"--box", "0,0,0,2147483647,1,1"}, "from 0 to 2147483646");
    expectRefused({"--size", "99999999999x1"}, "from 1 to 16384");
    expectRefused({"--dims", "2,99999999999,2", "--type", "uint8"}, "from 2 to 2147483647");
    expectRefused({"--dims", "2,3,4", "--type", "uint8", "--header", "9223372036854775808"}, "to 9223372036854775807");
}

TEST_F(BadValue, OptionsWithoutAValueOrGivenTwice) {
    for (char const* const option : {"--min", "--max", "--step", "--box", "--size", "--view", "--spacing", "--dims",
                                     "--type", "--header", "--adjacency"}) {
        expectRefused({option, ""}, std::string(option) + ": expected");
        expectRefused({option}, std::string(option) + ": expected");
        expectRefused({option, "1", option, "1"}, std::string(option) + ": expected");
    }
    EXPECT_TRUE(isUsageRefusal(runTool({"info", ""}), "volume: expected"));
}

TEST_F(BadValue, SizesOfNoPicture) {
    for (char const* const size : {"0x10", "10x0", "10", "10x", "10x10x10", "16385x10", "-5x5"}) {
        expectRefused({"--size", size}, "--size");
    }
    expectRefused({"--size", "1x5", "--adjacency", "N6,N8"}, "at least one pixel of width per adjacency system");
    expectRefused({"--view", "0,91"}, "--view");
    expectRefused({"--spacing", "1,0,1"}, "--spacing");
}

TEST_F(BadValue, StepsBoxesAndRangesOfNoVolume) {
    expectRefused({"--step", "0"}, "--step");
    expectRefused({"--step", "-1"}, "--step");
    for (char const* const box : {"-1,0,0,7,6,5", "5,0,0,4,6,5", "0,0,0"}) {
        expectRefused({"--box", box}, "--box");
    }
    expectRefused({"--min", "5", "--max", "4"}, "--min");
}

TEST_F(BadValue, StepsThatFitNoBox) {
    expectRefused({"--step", "3", "--box", "0,0,0,7,6,1"}, "--step 3: expected at most 2");
    expectRefused({"--box", "0,0,0,69999,69999,1"}, "--box");
}

TEST_F(BadValue, StepsAndBoxesThatDoNotFitBareVoxels) {
    auto const expectBareRefused = [this](std::string const& dims, std::vector<std::string> options,
                                          std::string const& named) {
        options.insert(options.end(), {"--type", "uint8", "--dims", dims});
        expectRefused(options, named);
    };
    expectBareRefused("4,4,4", {"--box", "0,0,0,9,9,9"}, "--box 0,0,0,9,9,9: expected");
    expectBareRefused("4,4,4", {"--step", "5"}, "--step 5: expected at most 4");
    expectBareRefused("70000,70000,2", {}, "--dims 70000,70000,2: expected");
}

TEST_F(BadValue, LayoutsOfNoBareVoxels) {
    expectRefused({"--dims", "2,3,4", "--type", "int12"}, "--type");
    expectRefused({"--dims", "2,3,4"}, "--type");
    for (char const* const flat : {"2,0,4", "1,8,8", "8,8,1"}) {
        expectRefused({"--dims", flat, "--type", "uint8"}, std::string("--dims ") + flat + ": expected");
    }
    expectRefused({"--type", "uint8"}, "--dims");
    expectRefused({"--big-endian"}, "--dims");
    expectRefused({"--dims", "2,3,4", "--type", "uint8", "--header", "-1"}, "--header");
}

TEST_F(BadValue, NamesOfNoPicture) {
    ToolRun const run = runTool({"render", (_folder / "missing.nii").string(), "-o", (_folder / "a.jpg").string()});
    EXPECT_TRUE(isUsageRefusal(run, "--output")) << run.error;
}

} // namespace
