// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/PngPicture.h"
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// Two voxels that touch at an edge, (0, 0, 0) and (1, 0, 1), in a volume of 3 x 2 x 3.
class Panels : public testing::Test {
  protected:
    Panels() {
        std::string bytes(18, '\0');
        bytes[0] = '\1';
        bytes[1 + 1 * 6] = '\1';
        writeFile(_folder / "a.raw", bytes);
    }

    [[nodiscard]] ToolRun run(std::string const& systems, std::string const& size) const {
        return runTool({"render", (_folder / "a.raw").string(), "--dims", "3,2,3", "--type", "uint8", "--min", "1",
                        "-o", (_folder / (systems + ".png")).string(), "--adjacency", systems, "--size", size});
    }

    [[nodiscard]] PngPicture draw(std::string const& systems, std::string const& size) const {
        ToolRun const drawn = run(systems, size);
        EXPECT_EQ(drawn.status, 0) << drawn.error;
        EXPECT_EQ(drawn.error, "");
        return PngPicture(_folder / (systems + ".png"));
    }

    TemporaryFolder _folder;
};

// Counts the pixels of a panel that differ from the picture of its system alone, in rows from `top` to `bottom`.
int differences(PngPicture const& picture, int left, PngPicture const& alone, int top, int bottom) {
    int count = 0;
    for (int y = top; y < bottom; ++y) {
        for (int x = 0; x < alone.width(); ++x) {
            count += picture.isSame(left + x, y, alone, x, y) ? 0 : 1;
        }
    }
    return count;
}

TEST_F(Panels, ShowEachSystemAsItsOwnPictureDoes) {
    constexpr int kHeight = 120;
    constexpr int kLabelEnd = 20;
    PngPicture const both = draw("N6,N26", "201x120");
    EXPECT_EQ(both.width(), 201);
    EXPECT_EQ(both.height(), kHeight);
    PngPicture const left = draw("N6", "100x120");
    PngPicture const right = draw("N26", "101x120");
    EXPECT_EQ(differences(both, 0, left, kLabelEnd, kHeight), 0);
    EXPECT_EQ(differences(both, 100, right, kLabelEnd, kHeight), 0);
    EXPECT_GT(differences(both, 0, left, 0, kLabelEnd), 20) << "no label";
    EXPECT_GT(differences(both, 100, right, 0, kLabelEnd), 20) << "no label";
}

TEST_F(Panels, DifferWhereTheSystemsDo) {
    // N26 links the two voxels, N6 does not.
    PngPicture const picture = draw("N6,N26,N6", "360x120");
    PngPicture const apart = draw("N6", "120x120");
    EXPECT_GT(differences(picture, 120, apart, 30, 120), 100);
    EXPECT_EQ(differences(picture, 240, apart, 30, 120), 0);
}

TEST_F(Panels, PrintTheFiguresOfEverySystem) {
    ToolRun const drawn = run("N6,N14II", "200x100");
    EXPECT_NE(drawn.output.find("N6, step 1: 16 primitives, 16 triangles"), std::string::npos) << drawn.output;
    EXPECT_NE(drawn.output.find("N14II, step 1: "), std::string::npos) << drawn.output;
}

TEST_F(Panels, RefuseWhatTheyCannotShow) {
    for (char const* const systems : {"N6,", ",N6", "N6,,N26", "N6 ,N26", "N6;N26", "N6,N7"}) {
        ToolRun const refused = run(systems, "200x100");
        EXPECT_TRUE(isUsageRefusal(refused, "--adjacency")) << systems << refused.error;
    }
    EXPECT_TRUE(isUsageRefusal(run("N6,N26,N14I", "2x100"), "--size"));
    EXPECT_EQ(std::distance(fs::directory_iterator(_folder.path()), {}), 1);
}

} // namespace
