// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// A folder with a volume of 8 x 7 x 6 voxels and a place for a picture.
class RenderCommand : public testing::Test {
  protected:
    RenderCommand() {
        writeMetaImage(makeSamples(8, 7, 6), _folder / "a.mha");
        fs::create_directory(_folder / "out");
    }

    [[nodiscard]] ToolRun render(std::string const& volume, std::vector<std::string> const& options) const {
        std::vector<std::string> arguments{"render", (_folder / volume).string(), "-o",
                                           (_folder / "out" / "a.png").string()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runTool(arguments);
    }

    void expectRefused(std::vector<std::string> const& options, std::string const& named) const {
        ToolRun const run = render("a.mha", options);
        EXPECT_TRUE(isInputRefusal(run, named)) << testing::PrintToString(options) << run.status << " " << run.error;
        EXPECT_TRUE(fs::is_empty(_folder / "out"));
    }

    // Draws a mask of 4 x 4 x 4 bytes that are `low` or `high`, and returns what is printed of its surface.
    [[nodiscard]] std::string drawMask(char low, char high, std::vector<std::string> options) const {
        std::string bytes;
        for (int i = 0; i < 64; ++i) {
            bytes.push_back(i % 5 == 0 || i % 7 == 0 ? high : low);
        }
        writeFile(_folder / "a.raw", bytes);
        options.insert(options.end(), {"--dims", "4,4,4", "--type", "uint8", "--size", "60x60"});
        ToolRun const run = render("a.raw", options);
        EXPECT_EQ(run.status, 0) << run.error;
        return run.output.substr(run.output.find("foreground"));
    }

    TemporaryFolder _folder;
};

TEST_F(RenderCommand, RefusesStepsThatFitNoBox) { expectRefused({"--step", "7"}, "--step"); }

TEST_F(RenderCommand, RefusesBoxesThatDoNotLieInTheVolume) {
    for (char const* const box : {"0,0,0,8,6,5", "0,0,0,7,7,5", "0,0,0,7,6,6"}) {
        expectRefused({"--box", box}, "--box");
    }
}

TEST_F(RenderCommand, TakesABoxWithItsFirstAndItsLastVoxel) {
    EXPECT_EQ(render("a.mha", {"--box", "0,0,0,7,6,5", "--size", "20x20"}).status, 0);
    ToolRun const run = render("a.mha", {"--box", "2,3,4,2,3,4", "--min", "0", "--size", "20x20"});
    EXPECT_NE(run.output.find("foreground  1 voxels"), std::string::npos) << run.output << run.error;
}

TEST_F(RenderCommand, SaysWhichValuesABoundAloneAsksFor) {
    ToolRun const below = render("a.mha", {"--max", "2000", "--size", "20x20"});
    EXPECT_NE(below.output.find("values      up to 2000 of "), std::string::npos) << below.output << below.error;
    ToolRun const above = render("a.mha", {"--min", "2000", "--size", "20x20"});
    EXPECT_NE(above.output.find("values      from 2000 of "), std::string::npos) << above.output << above.error;
}

TEST_F(RenderCommand, RefusesRangesWithoutVoxels) {
    expectRefused({"--min", "4001"}, "a.mha");
    expectRefused({"--max", "-1"}, "--max");
}

// The library counts a voxel's lowest bit, which is 0 in every even value.
TEST_F(RenderCommand, CountsTheVoxelsOfAnEvenValuedMaskAsThoseOfOnes) {
    std::string const ones = drawMask('\0', '\1', {"--min", "1"});
    std::string const picture = readFile(_folder / "out" / "a.png");
    EXPECT_NE(ones.find(" triangles"), std::string::npos);
    for (auto const& [low, high] : {std::pair{'\0', '\2'}, {'\0', '\xFE'}}) {
        EXPECT_EQ(drawMask(low, high, {"--min", "1"}), ones);
        EXPECT_EQ(readFile(_folder / "out" / "a.png"), picture);
    }
    EXPECT_EQ(drawMask('\2', '\xFE', {"--min", "3"}), ones);
    EXPECT_EQ(drawMask('\xFE', '\2', {"--max", "3"}), ones);
    EXPECT_EQ(drawMask('\2', '\xFE', {}), ones);
}

TEST_F(RenderCommand, CountsEveryVoxelOfAMaskOfTwoEvenValues) {
    EXPECT_EQ(drawMask('\2', '\xFE', {"--min", "1"}), drawMask('\1', '\1', {"--min", "1"}));
}

TEST_F(RenderCommand, RefusesPlacesWhereNoPictureCanBeWritten) {
    std::string const volume = (_folder / "a.mha").string();
    fs::create_directory(_folder / "folder.png");
    for (std::string const output : {"missing/a.png", "folder.png", "a.nii/a.png"}) {
        ToolRun const run = runTool({"render", volume, "-o", (_folder / output).string()});
        EXPECT_TRUE(isInputRefusal(run, "--output")) << output << run.error;
    }
}

} // namespace
