// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/ToolRun.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Eight voxels a row of the values given, repeated; returns the lines on values and foreground.
std::string valuesOf(std::vector<int> const& row, std::vector<std::string> const& options = {}) {
    TemporaryFolder const folder;
    std::string bytes;
    for (int i = 0; i < 8 * 8 * 8; ++i) {
        bytes += static_cast<char>(row[static_cast<std::size_t>(i % 8)]);
    }
    writeFile(folder / "a.raw", bytes);
    std::vector<std::string> arguments{"render", (folder / "a.raw").string(), "--dims", "8,8,8", "--type", "uint8",
                                       "-o",     (folder / "a.png").string(), "--size", "20x20"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    ToolRun const run = runTool(arguments);
    auto const start = run.output.find("values");
    auto const end = run.output.find('\n', run.output.find("foreground"));
    return run.status == 0 ? run.output.substr(start, end - start) : run.error;
}

TEST(RenderForeground, OfAMaskIsTheLargerValue) {
    EXPECT_EQ(valuesOf({3, 3, 3, 7, 7, 3, 3, 3}), "values      7 of 3 .. 7, a mask of 3 and 7\nforeground  128 voxels");
}

TEST(RenderForeground, OfLabelsIsAllButZero) {
    EXPECT_EQ(valuesOf({0, 0, 1, 1, 1, 9, 9, 0}),
              "values      all but 0 of 0 .. 9, labels; --as grey for a threshold\nforeground  320 voxels");
}

TEST(RenderForeground, OfGreyValuesBeginsAtOtsusThreshold) {
    std::string const values = valuesOf({0, 0, 1, 1, 1, 9, 9, 0}, {"--as", "grey"});
    EXPECT_NE(values.find("grey values, --min by Otsu's method\nforeground  128 voxels"), std::string::npos) << values;
}

TEST(RenderForeground, IsWhatTheUserSaysOfTheVoxels) {
    EXPECT_EQ(valuesOf({3, 3, 3, 7, 7, 3, 3, 3}, {"--as", "labels"}),
              "values      all but 0 of 3 .. 7, labels, as --as says\nforeground  512 voxels");
    EXPECT_NE(valuesOf({0, 0, 1, 1, 1, 9, 9, 0}, {"--min", "2"}).find("from 2 of 0 .. 9\n"), std::string::npos);
}

TEST(RenderForeground, OfASegmentIsItsValueInItsLayer) {
    // Two layers, which take turns voxel by voxel: the second has the value 1 in one row of eight.
    TemporaryFolder const folder;
    std::string bytes;
    for (int i = 0; i < 8 * 8 * 8; ++i) {
        bytes += std::string{static_cast<char>(i % 2), static_cast<char>(i / 8 % 8 == 3 ? 1 : 0)};
    }
    writeFile(folder / "a.seg.nrrd",
              "NRRD0005\ntype: uchar\ndimension: 4\nsizes: 2 8 8 8\nkinds: list domain domain domain"
              "\nencoding: raw\nSegment0_Name:=liver\nSegment0_LabelValue:=1\nSegment0_Layer:=0"
              "\nSegment1_Name:=tumour\nSegment1_LabelValue:=1\nSegment1_Layer:=1\n\n" +
                  bytes);
    auto const run = [&](std::string const& segment) {
        return runTool({"render", (folder / "a.seg.nrrd").string(), "--segment", segment, "-o",
                        (folder / "a.png").string(), "--size", "20x20"});
    };
    EXPECT_NE(run("tumour").output.find("values      1 of 0 .. 1\nforeground  64 voxels"), std::string::npos)
        << run("tumour").output << run("tumour").error;
    EXPECT_NE(run("liver").output.find("foreground  256 voxels"), std::string::npos);
    EXPECT_TRUE(isInputRefusal(run("heart"),
                               "expected a segment called \"heart\", found liver, tumour; choose one with --segment"))
        << run("heart").error;
}

TEST(RenderForeground, IsSaidInOneWayAtATime) {
    EXPECT_NE(valuesOf({0, 1, 0, 1, 0, 1, 0, 1}, {"--as", "labels", "--min", "1"}).find("--as labels: expected"),
              std::string::npos);
    EXPECT_NE(valuesOf({0, 1, 0, 1, 0, 1, 0, 1}, {"--as", "mask"}).find("--as mask: expected labels or grey"),
              std::string::npos);
}

} // namespace
