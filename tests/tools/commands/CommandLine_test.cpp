// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"

#include <gtest/gtest.h>

namespace {

TEST(CommandLine, WithoutACommandThatIsKnownNamesThemAll) {
    for (std::vector<std::string> const& arguments :
         {std::vector<std::string>{}, {"draw"}, {"--colour"}, {"draw", "a.mha"}}) {
        ToolRun const run = runTool(arguments);
        EXPECT_TRUE(isUsageRefusal(run, "info, render or atlas; see tamo --help")) << run.error;
        EXPECT_TRUE(isUsageRefusal(run, arguments.empty() ? "tamo: expected" : "tamo: " + arguments[0] + ": expected"));
    }
}

TEST(CommandLine, WithAnUnknownArgumentPointsToTheHelpOfItsCommand) {
    EXPECT_TRUE(isUsageRefusal(runTool({"info", "a.mha", "--colour", "red"}), "--colour"));
    EXPECT_TRUE(isUsageRefusal(runTool({"info", "a.mha", "--min", "1"}), "expected no --min 1; see tamo info --help"));
    EXPECT_TRUE(
        isUsageRefusal(runTool({"render", "a.mha", "-o", "a.png", "another"}), "another; see tamo render --help"));
    EXPECT_TRUE(isUsageRefusal(runTool({"atlas", "-o", "a.png", "a.mha"}), "a.mha; see tamo atlas --help"));
    EXPECT_TRUE(isUsageRefusal(runTool({"--colour", "info", "a.mha"}), "--colour; see tamo --help"));
}

TEST(CommandLine, NamesAnUnknownArgumentRatherThanOneThatIsMissing) {
    EXPECT_TRUE(isUsageRefusal(runTool({"render", "--bogus"}), "expected no --bogus; see tamo render --help"));
    EXPECT_TRUE(isUsageRefusal(runTool({"render", "a.mha", "--neighborhood", "N6"}),
                               "expected no --neighborhood N6; see tamo render --help"));
}

TEST(CommandLine, WithoutWhatACommandNeedsNamesIt) {
    EXPECT_TRUE(isUsageRefusal(runTool({"info"}), "volume is required; see tamo info --help"));
    EXPECT_TRUE(isUsageRefusal(runTool({"render", "a.mha"}), "--output is required; see tamo render --help"));
    EXPECT_TRUE(isUsageRefusal(runTool({"atlas"}), "--output is required; see tamo atlas --help"));
}

TEST(CommandLine, WithoutAnOptionsValueOrWithTwoPointsToTheHelpOfTheCommand) {
    std::string const help = ": expected once, with one value; see tamo render --help";
    for (char const* const option : {"--step", "--adjacency"}) {
        EXPECT_TRUE(isUsageRefusal(runTool({"render", "a.mha", "-o", "a.png", option}), option + help));
        EXPECT_TRUE(
            isUsageRefusal(runTool({"render", "a.mha", "-o", "a.png", option, "1", option, "1"}), option + help));
    }
}

TEST(CommandLine, DoesNotTakeTheNextWordForAValueLeftEmpty) {
    for (char const* const option : {"--adjacency=", "--size=", "--big-endian=", "--colour="}) {
        ToolRun const run = runTool({"render", "a.mha", "-o", "a.png", option, "26"});
        EXPECT_TRUE(isUsageRefusal(run, std::string(option) + ": expected a value")) << run.error;
    }
    EXPECT_TRUE(isInputRefusal(runTool({"render", "a.mha", "-o", "a.png", "--size=40x40"}), "a.mha"));
}

TEST(CommandLine, PointsToTheHelpOfTheCommandWhoseOptionIsLeftEmpty) {
    EXPECT_TRUE(isUsageRefusal(runTool({"render", "a.mha", "--min="}), "--min=: expected a value right behind it"));
    EXPECT_TRUE(isUsageRefusal(runTool({"render", "a.mha", "--min="}), "see tamo render --help"));
    EXPECT_TRUE(isUsageRefusal(runTool({"--min=", "render"}), "see tamo --help"));
}

TEST(Help, IsPrintedOnStandardOutput) {
    for (std::vector<std::string> const& arguments :
         {std::vector<std::string>{"--help"}, {"info", "--help"}, {"render", "--help"}, {"atlas", "--help"}}) {
        ToolRun const run = runTool(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.error, "");
        EXPECT_NE(run.output.find("xample"), std::string::npos);
    }
    EXPECT_EQ(runTool({"--version"}).output.compare(0, 5, "tamo "), 0);
}

} // namespace
