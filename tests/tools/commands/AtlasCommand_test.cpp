// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/PngPicture.h"
#include "tools/support/ToolRun.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

namespace fs = std::filesystem;

// The numbers of pixels of each kind in a part of a sheet.
struct Inks {
    // Outward sides of polygons.
    int warm = 0;
    // Inner sides.
    int cold = 0;
    // Lines, letters, discs.
    int dark = 0;
    // Insides of the rings of background corners.
    int white = 0;
};

Inks inksOf(PngPicture const& picture, int left, int top, int side) {
    Inks inks;
    for (int i = 0; i < side * side; ++i) {
        Pixel const p = picture.at(left + i % side, top + i / side);
        inks.warm += p.red > p.blue + 60 ? 1 : 0;
        inks.cold += p.blue > p.red + 60 ? 1 : 0;
        inks.dark += std::max({p.red, p.green, p.blue}) < 80 ? 1 : 0;
        inks.white += std::min({p.red, p.green, p.blue}) == 255 ? 1 : 0;
    }
    return inks;
}

class Atlas : public testing::Test {
  protected:
    [[nodiscard]] ToolRun run(std::vector<std::string> const& options) const {
        std::vector<std::string> arguments{"atlas", "-o", (_folder / "a.png").string()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runTool(arguments);
    }

    [[nodiscard]] PngPicture draw(std::vector<std::string> const& options) const {
        ToolRun const drawn = run(options);
        EXPECT_EQ(drawn.status, 0) << drawn.error;
        EXPECT_EQ(drawn.error, "");
        EXPECT_NE(drawn.output.find("a.png"), std::string::npos);
        return PngPicture(_folder / "a.png");
    }

    void expectRefused(std::vector<std::string> const& options, std::string const& named) const {
        ToolRun const refused = run(options);
        EXPECT_TRUE(isUsageRefusal(refused, named)) << testing::PrintToString(options) << refused.error;
        EXPECT_TRUE(fs::is_empty(_folder.path()));
    }

    TemporaryFolder _folder;
};

TEST_F(Atlas, IsLegiblyLargeUnlessASizeIsAskedFor) {
    PngPicture const legible = draw({});
    EXPECT_EQ(legible.width(), 2400);
    EXPECT_EQ(legible.height(), 2400);
    PngPicture const small = draw({"--size", "321x123"});
    EXPECT_EQ(small.width(), 321);
    EXPECT_EQ(small.height(), 123);
}

TEST_F(Atlas, ShowsPolygonsInEveryTileButTheFirstAndTheLast) {
    constexpr int kTile = 60;
    for (std::string const system : {"N6", "N8", "N12", "N14I", "N14II", "N26"}) {
        SCOPED_TRACE(system);
        PngPicture const sheet = draw({"--adjacency", system, "--size", "960x960"});
        for (int i = 0; i < 256; ++i) {
            Inks const inks = inksOf(sheet, i % 16 * kTile, i / 16 * kTile, kTile);
            EXPECT_EQ(inks.warm + inks.cold > 0, i != 0 && i != 255) << i;
        }
    }
}

TEST_F(Atlas, FillsTheCornersOfTheForegroundAlone) {
    // One corner more is one disc more, and one ring less.
    constexpr int kTile = 300;
    PngPicture const sheet = draw({"--adjacency", "N6", "--configurations", "0,1,255", "--size", "900x300"});
    Inks const none = inksOf(sheet, 0, 0, kTile);
    Inks const one = inksOf(sheet, kTile, 0, kTile);
    Inks const all = inksOf(sheet, 2 * kTile, 0, kTile);
    EXPECT_GT(one.dark, none.dark);
    EXPECT_GT(all.dark, one.dark);
    EXPECT_NEAR(one.white, 0.875 * none.white, 0.025 * none.white);
    EXPECT_EQ(all.white, 0);
}

TEST_F(Atlas, ShowsTheOtherSideOfTheComplement) {
    // Corner 2 is behind its polygon, so that the outward side is seen; without it everything else is.
    constexpr int kTile = 200;
    for (std::string const system : {"N6", "N14I", "N14II", "N26"}) {
        PngPicture const sheet =
            draw({"--adjacency", system, "--configurations", "4,251", "--view", "156,5", "--size", "400x200"});
        Inks const corner = inksOf(sheet, 0, 0, kTile);
        Inks const rest = inksOf(sheet, kTile, 0, kTile);
        EXPECT_GT(corner.warm, 100) << system;
        EXPECT_EQ(corner.cold, 0) << system;
        EXPECT_EQ(rest.warm, 0) << system;
        EXPECT_NEAR(rest.cold, corner.warm, 20) << system;
    }
}

TEST_F(Atlas, GivesEachOfSeveralSystemsAColumn) {
    constexpr int kTile = 200;
    PngPicture const sheet = draw({"--adjacency", "N6,N26,N6", "--configurations", "9,15", "--size", "600x400"});
    // Corners 0 and 3 lie on a face diagonal, which N26 links and N6 does not; 0 to 3 are one face.
    Inks const apart = inksOf(sheet, 0, 0, kTile);
    EXPECT_GT(inksOf(sheet, kTile, 0, kTile).warm, 2 * apart.warm);
    constexpr int kRounding = 20;
    EXPECT_NEAR(inksOf(sheet, 2 * kTile, 0, kTile).warm, apart.warm, kRounding);
    EXPECT_NEAR(inksOf(sheet, kTile, kTile, kTile).warm, inksOf(sheet, 0, kTile, kTile).warm, kRounding);
}

TEST_F(Atlas, RefusesWhatNamesNoSheet) {
    expectRefused({"--adjacency", "N7"}, "--adjacency");
    expectRefused({"--adjacency", "N6,"}, "--adjacency");
    expectRefused({"--adjacency", "N6,N26"}, "--configurations");
    for (char const* const list : {"256", "-1", "1,,2", "1,2,", "x", "0x10", " 1"}) {
        expectRefused({"--configurations", list}, "--configurations");
    }
    expectRefused({"--size", "0x100"}, "--size");
    expectRefused({"--size", "16385x100"}, "--size");
    expectRefused({"--view", "0,91"}, "--view");
    expectRefused({"--min", "1"}, "--min");
    expectRefused({"volume.nii"}, "volume.nii");
    EXPECT_TRUE(isUsageRefusal(runTool({"atlas"}), "--output"));
    EXPECT_TRUE(isUsageRefusal(runTool({"atlas", "-o", (_folder / "a.jpg").string()}), "a.jpg"));
    EXPECT_TRUE(isInputRefusal(runTool({"atlas", "-o", (_folder / "none" / "a.png").string()}), "--output"));
}

TEST_F(Atlas, HelpIsPrintedOnStandardOutput) {
    ToolRun const help = runTool({"atlas", "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.error, "");
    EXPECT_NE(help.output.find("--configurations"), std::string::npos);
}

} // namespace
