// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/PngPicture.h"
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>

namespace {

namespace fs = std::filesystem;

// Draws a file of bare 8-bit voxels, 1 where `isInside` holds.
template <typename IsInside>
fs::path draw(TemporaryFolder const& folder, std::array<int, 3> size, IsInside&& isInside,
              std::vector<std::string> const& options) {
    std::string bytes;
    for (int z = 0; z < size[2]; ++z) {
        for (int y = 0; y < size[1]; ++y) {
            for (int x = 0; x < size[0]; ++x) {
                bytes.push_back(isInside(x, y, z) ? '\1' : '\0');
            }
        }
    }
    writeFile(folder / "a.raw", bytes);
    fs::path picture = folder / "a.png";
    std::string const dims = std::to_string(size[0]) + "," + std::to_string(size[1]) + "," + std::to_string(size[2]);
    std::vector<std::string> arguments{
        "render", (folder / "a.raw").string(), "--dims", dims, "--type", "uint8", "-o", picture.string()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    ToolRun const run = runTool(arguments);
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.error, "");
    return picture;
}

bool everything(int /*x*/, int /*y*/, int /*z*/) { return true; }

TEST(Picture, HasTheSizeAskedFor) {
    TemporaryFolder const folder;
    PngPicture const picture(draw(folder, {4, 4, 4}, everything, {"--min", "1", "--size", "123x45"}));
    EXPECT_EQ(picture.width(), 123);
    EXPECT_EQ(picture.height(), 45);
    EXPECT_GT(picture.coverage(), 0.1);
}

TEST(Picture, ShowsABlockFilledButForTheMargin) {
    // Seen from the front a block of 20 x 10 voxels, 1 and 2 apart, is a square; a twentieth stays free at each side.
    TemporaryFolder const folder;
    PngPicture const picture(draw(folder, {20, 5, 10}, everything,
                                  {"--min", "1", "--spacing", "1,1,2", "--view", "0,0", "--size", "200x200"}));
    EXPECT_NEAR(picture.coverage(), 0.9 * 0.9, 0.02);
    EXPECT_TRUE(picture.isBackground(5, 100));
    EXPECT_FALSE(picture.isBackground(15, 100));
    EXPECT_FALSE(picture.isBackground(184, 100));
    EXPECT_TRUE(picture.isBackground(194, 100));
}

TEST(Picture, CoversWhatTheBallProjects) {
    auto const isInBall = [](int x, int y, int z) { return std::hypot(x - 32.0, y - 32.0, z - 32.0) < 27.5; };
    for (char const* const view : {"0,0", "-35,15", "90,0", "10,90", "200,-45"}) {
        TemporaryFolder const folder;
        PngPicture const picture(draw(folder, {65, 65, 65}, isInBall, {"--view", view, "--size", "300x300"}));
        double const pi = std::acos(-1.0);
        EXPECT_NEAR(picture.coverage(), 0.9 * 0.9 * pi / 4, 0.02) << view;
    }
}

TEST(Picture, IsLitOnEverySideAndBurntNowhere) {
    auto const isInBall = [](int x, int y, int z) { return std::hypot(x - 16.0, y - 16.0, z - 16.0) < 14; };
    TemporaryFolder const folder;
    PngPicture const picture(draw(folder, {33, 33, 33}, isInBall, {"--size", "200x200"}));
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            Pixel const pixel = picture.at(x, y);
            ASSERT_GT(pixel.blue, 50) << x << ", " << y;
            ASSERT_LT(pixel.red, 255) << x << ", " << y;
        }
    }
    // The key light stands at the upper left.
    EXPECT_GT(picture.at(80, 70).red, picture.at(140, 150).red + 10);
}

// An edge along each axis, of different lengths: no two views of it look alike.
bool isOnTripod(int x, int y, int z) {
    return (y < 2 && z < 2) || (x < 2 && z < 2 && y < 12) || (x < 2 && y < 2 && z < 6);
}

TEST(Picture, ShowsTheRightSideOnTheLeftFromTheFront) {
    TemporaryFolder const folder;
    PngPicture const picture(draw(folder, {20, 20, 20}, isOnTripod,
                                  {"--view", "0,0", "--size", "200x200", "--min", "1", "--orientation", "RAS"}));
    // The x axis leads to the left, the z axis up; the corner they share is at the lower right.
    int const middle = 100;
    EXPECT_FALSE(picture.isBackground(185, middle + 25));
    EXPECT_FALSE(picture.isBackground(15, middle + 25));
    EXPECT_TRUE(picture.isBackground(15, middle - 25));
    EXPECT_FALSE(picture.isBackground(185, middle - 20));
}

TEST(Picture, FollowsThePatientsAxesWhateverTheOrderOfTheVoxels) {
    // The same body stored with x towards the left has to give the same picture.
    TemporaryFolder const folder;
    std::array<fs::path, 2> const pictures{folder / "right.png", folder / "left.png"};
    Samples right{{20, 20, 20}, std::vector<std::int16_t>(8000)};
    Samples left = right;
    for (int i = 0; i < 8000; ++i) {
        int const x = i % 20;
        int const y = i / 20 % 20;
        int const z = i / 400;
        right.values[static_cast<std::size_t>(i)] = isOnTripod(x, y, z) ? 1 : 0;
        left.values[static_cast<std::size_t>(i)] = isOnTripod(19 - x, y, z) ? 1 : 0;
    }
    auto const write = [&folder](Samples const& samples, std::string const& direction) {
        writeFile(folder / "a.nrrd",
                  "NRRD0005\ntype: short\ndimension: 3\nsizes: 20 20 20\nspace: right-anterior-superior"
                  "\nspace directions: (" +
                      direction + ",0,0) (0,1,0) (0,0,1)\nencoding: raw\nendian: little\n\n" + rawBytes(samples));
    };
    write(right, "1");
    EXPECT_EQ(runTool({"render", (folder / "a.nrrd").string(), "-o", pictures[0].string(), "--size", "150x150"}).status,
              0);
    write(left, "-1");
    EXPECT_EQ(runTool({"render", (folder / "a.nrrd").string(), "-o", pictures[1].string(), "--size", "150x150"}).status,
              0);

    PngPicture const a(pictures[0]);
    PngPicture const b(pictures[1]);
    int different = 0;
    for (int i = 0; i < 150 * 150; ++i) {
        different += a.isBackground(i % 150, i / 150) != b.isBackground(i % 150, i / 150) ? 1 : 0;
    }
    // The cell's cut is not symmetric: corners may differ by parts of a voxel.
    EXPECT_LT(different, 150 * 150 / 50);
    EXPECT_GT(a.coverage(), 0.05);
}

TEST(Picture, IsTheSameWhetherTheFileStatesTheUsualAxesOrNone) {
    TemporaryFolder const folder;
    Samples body{{20, 20, 20}, {}};
    for (int i = 0; i < 8000; ++i) {
        body.values.push_back(isOnTripod(i % 20, i / 20 % 20, i / 400) ? 1 : 0);
    }
    std::string const meta = "NDims = 3\nDimSize = 20 20 20\nElementType = MET_SHORT\n";
    std::string const nrrd = "NRRD0005\ntype: short\ndimension: 3\nsizes: 20 20 20\nencoding: raw\nendian: little\n";
    writeFile(folder / "none.mha", meta + "ElementDataFile = LOCAL\n" + rawBytes(body));
    writeFile(folder / "same.mha",
              meta + "TransformMatrix = 1 0 0 0 1 0 0 0 1\nElementDataFile = LOCAL\n" + rawBytes(body));
    writeFile(folder / "none.nrrd", nrrd + "\n" + rawBytes(body));
    writeFile(folder / "same.nrrd",
              nrrd + "space: left-posterior-superior\nspace directions: (1,0,0) (0,1,0) (0,0,1)\n\n" + rawBytes(body));
    writeFile(folder / "none.raw", rawBytes(body));
    std::vector<std::string> pictures;
    for (std::string const name : {"none.mha", "same.mha", "none.nrrd", "same.nrrd", "none.raw"}) {
        std::vector<std::string> arguments{
            "render", (folder / name).string(), "-o", (folder / "a.png").string(), "--size", "100x100"};
        if (name == "none.raw") {
            arguments.insert(arguments.end(), {"--dims", "20,20,20", "--type", "int16"});
        }
        EXPECT_EQ(runTool(arguments).status, 0) << name;
        pictures.push_back(readFile(folder / "a.png"));
    }
    EXPECT_EQ(std::count(pictures.begin(), pictures.end(), pictures.front()), 5);
}

TEST(Picture, OfABoxIsThatOfAVolumeEmptyElsewhere) {
    // Boxes of one side after the other, and one inside; the volume looks different from every side.
    Samples const samples = makeSamples(12, 11, 10);
    auto const isInside = [&samples](int x, int y, int z) { return samples.at(x, y, z) > 3000; };
    std::array<std::array<int, 6>, 4> const boxes{
        {{5, 0, 0, 8, 10, 9}, {0, 3, 0, 11, 7, 9}, {0, 0, 6, 11, 10, 9}, {2, 3, 4, 9, 8, 7}}};
    for (std::array<int, 6> const& box : boxes) {
        std::string text;
        for (int const end : box) {
            text += (text.empty() ? "" : ",") + std::to_string(end);
        }
        TemporaryFolder const folder;
        std::vector<std::string> options{"--min", "1", "--size", "90x90", "--spacing", "1,1.5,2"};
        auto const isInBox = [&](int x, int y, int z) {
            return isInside(x, y, z) && x >= box[0] && x <= box[3] && y >= box[1] && y <= box[4] && z >= box[2] &&
                   z <= box[5];
        };
        std::string const whole = readFile(draw(folder, samples.size, isInBox, options));
        options.insert(options.end(), {"--box", text});
        EXPECT_EQ(readFile(draw(folder, samples.size, isInside, options)), whole) << text;
    }
}

TEST(Picture, TakesThePlaceOfAnOlderOneAndLeavesNothingElse) {
    TemporaryFolder const folder;
    writeFile(folder / "a.png", "old");
    draw(folder, {4, 4, 4}, everything, {"--min", "1", "--size", "20x20"});
    EXPECT_EQ(PngPicture(folder / "a.png").width(), 20);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST(RenderStages, PrintTheirTimeAndMemoryWhenVerbose) {
    TemporaryFolder const folder;
    writeMetaImage(makeSamples(8, 7, 6), folder / "a.mha");
    ToolRun const run = runTool(
        {"render", (folder / "a.mha").string(), "-o", (folder / "a.png").string(), "--size", "20x20", "--verbose"});
    EXPECT_EQ(run.status, 0);
    for (char const* const stage : {"read ", "threshold ", "count ", "scan ", "draw ", "write "}) {
        EXPECT_NE(run.output.find(stage), std::string::npos) << stage;
    }
    EXPECT_NE(run.output.find(" s "), std::string::npos);
    EXPECT_NE(run.output.find(" MiB"), std::string::npos);
}

} // namespace
