// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace {

class InfoCommand : public testing::Test {
  protected:
    [[nodiscard]] std::string floats(std::vector<float> const& values) const {
        std::string bytes;
        for (float const value : values) {
            bytes += numberBytes(value);
        }
        writeFile(_folder / "a.raw", bytes);
        ToolRun const run = runTool({"info", (_folder / "a.raw").string(), "--dims", "2,2,2", "--type", "float32"});
        EXPECT_EQ(run.status, 0) << run.error;
        return run.output;
    }

    TemporaryFolder _folder;
};

bool holds(std::string const& text, std::string const& part) { return text.find(part) != std::string::npos; }

TEST_F(InfoCommand, PrintsWhatTheFileSaysAndWhatIsAssumed) {
    writeMetaImage(makeSamples(5, 4, 3), _folder / "a.mha");
    ToolRun const run = runTool({"info", (_folder / "a.mha").string()});
    EXPECT_TRUE(holds(run.output, "format      MetaImage\n")) << run.output << run.error;
    EXPECT_TRUE(holds(run.output, "dimensions  5 x 4 x 3\n"));
    EXPECT_TRUE(holds(run.output, "type        int16\n"));
    EXPECT_TRUE(holds(run.output, "spacing     1 x 2 x 3 mm\n"));
    EXPECT_TRUE(holds(run.output, "direction   LPS, assumed: the file does not say\n"));
    EXPECT_TRUE(holds(run.output, "bytes       120\n"));
}

TEST_F(InfoCommand, CountsWhatIsNoNumber) {
    float const nan = std::nanf("");
    float const infinity = std::numeric_limits<float>::infinity();
    std::string const output = floats({nan, 1.5F, -2, infinity, nan, infinity, -infinity, 3});
    EXPECT_TRUE(holds(output, "range       -2 .. 3\n")) << output;
    EXPECT_TRUE(holds(output, "NaN         2 voxels\n")) << output;
    EXPECT_TRUE(holds(output, "infinite    2 voxels, and 1 negative\n")) << output;
    EXPECT_TRUE(holds(output, "voxels      grey, 3 different values\n")) << output;
}

TEST_F(InfoCommand, PrintsVolumesWithoutANumber) {
    std::string const output = floats(std::vector<float>(8, std::nanf("")));
    EXPECT_FALSE(holds(output, "range")) << output;
    EXPECT_TRUE(holds(output, "NaN         8 voxels\n")) << output;
}

TEST_F(InfoCommand, CountsTheVoxelsOfEachLabel) {
    EXPECT_TRUE(
        holds(floats({0, 0, 0, 0, 5, 5, 5, 5}), "mask, 2 different values\n            0: 4\n            5: 4\n"));
}

TEST_F(InfoCommand, PrintsTheSameAsJson) {
    writeFile(_folder / "a.raw", std::string("\0\1\2\2\2\2\2\2", 8));
    ToolRun const run = runTool({"info", (_folder / "a.raw").string(), "--dims", "2,2,2", "--type", "uint8",
                                 "--spacing", "0.5,1,2", "--orientation", "RAS", "--json"});
    auto const json = nlohmann::json::parse(run.output);
    EXPECT_EQ(json["size"], (std::vector<int>{2, 2, 2}));
    EXPECT_EQ(json["type"], "uint8");
    EXPECT_EQ(json["geometry"]["spacing"], (std::vector<double>{0.5, 1, 2}));
    EXPECT_EQ(json["geometry"]["orientation"], "RAS");
    EXPECT_EQ(json["range"], (std::vector<double>{0, 2}));
    EXPECT_EQ(json["values"][2]["voxels"], 6);
    EXPECT_EQ(json["bytes"], 8);
}

TEST_F(InfoCommand, TakesAnOrientationForFilesWithoutOne) {
    writeMetaImage(makeSamples(5, 4, 3), _folder / "a.mha");
    ToolRun const run = runTool({"info", (_folder / "a.mha").string(), "--orientation", "ial"});
    EXPECT_TRUE(holds(run.output, "direction   IAL\n")) << run.output << run.error;
    EXPECT_TRUE(isUsageRefusal(runTool({"info", "a.mha", "--orientation", "LPP"}), "--orientation LPP"));
    std::string const file = readFile(_folder / "a.mha");
    writeFile(_folder / "b.mha", "TransformMatrix = 1 0 0 0 1 0 0 0 1\n" + file);
    EXPECT_TRUE(isInputRefusal(runTool({"info", (_folder / "b.mha").string(), "--orientation", "LPS"}),
                               "leave out --orientation"));
}

} // namespace
