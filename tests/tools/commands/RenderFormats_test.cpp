// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/PngPicture.h"
#include "tools/support/ToolRun.h"
#include "volume/support/TestFormats.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// Draws the letter that is raised on the phantom, and nothing else of it.
PngPicture drawLetter(TemporaryFolder const& folder, fs::path const& volume, int min,
                      std::vector<std::string> options) {
    std::vector<std::string> arguments{
        "render", volume.string(), "-o",   (folder / "letter.png").string(), "--min", std::to_string(min), "--size",
        "90x90",  "--view",        "20,50"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    ToolRun const run = runTool(arguments);
    EXPECT_EQ(run.status, 0) << run.error;
    return PngPicture(folder / "letter.png");
}

// The picture that the format has to give: that of the same voxels in a MetaImage file that states the same.
PngPicture drawExpected(TemporaryFolder const& folder, Phantom const& phantom, TestFormat const& format) {
    std::string header = "NDims = 3\nDimSize = 19 17 11\nElementType = MET_SHORT\n";
    if (format.hasSpacing) {
        header += "ElementSpacing = 1 2 3\n";
    }
    if (format.hasAxes) {
        header += "TransformMatrix =";
        for (auto const& axis : phantom.axes) {
            for (double const value : axis) {
                header += " " + std::to_string(value);
            }
        }
        header += "\n";
    }
    std::vector<unsigned char> const voxels = voxelBytes(phantom, /*isBigEndian=*/false);
    writeFile(folder / "expected.mha",
              header + "ElementDataFile = LOCAL\n" + std::string(voxels.begin(), voxels.end()));
    return drawLetter(folder, folder / "expected.mha", 2000, {});
}

class RenderFormats : public testing::TestWithParam<TestFormat> {};

TEST_P(RenderFormats, ShowTheLetterFromTheSameSide) {
    Phantom const phantom = makePhantom(19, 17, 11);
    TemporaryFolder const folder;
    fs::create_directory(folder / "volume");
    GetParam().write(phantom, folder / "volume");
    PngPicture const expected = drawExpected(folder, phantom, GetParam());
    PngPicture const shown = drawLetter(folder, folder / "volume" / GetParam().fileName, 2000 / GetParam().divisor, {});
    int different = 0;
    int mirrored = 0;
    for (int i = 0; i < 90 * 90; ++i) {
        int const x = i % 90;
        int const y = i / 90;
        different += shown.isSame(x, y, expected, x, y) ? 0 : 1;
        mirrored += shown.isBackground(x, y) == expected.isBackground(89 - x, y) ? 0 : 1;
    }
    // Directions that a file holds as single numbers move an edge here and there.
    EXPECT_LT(different, 90 * 90 / 50);
    EXPECT_GT(mirrored, 90 * 90 / 20);
}

INSTANTIATE_TEST_SUITE_P(All, RenderFormats, testing::ValuesIn(testFormats()),
                         [](auto const& instance) { return instance.param.name; });

} // namespace
