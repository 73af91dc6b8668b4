// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <csignal>

namespace {

namespace fs = std::filesystem;

// A volume of many polygons, and a place for its picture.
class Progress : public testing::Test {
  protected:
    explicit Progress(int side = 70) {
        std::string const dims = std::to_string(side) + "," + std::to_string(side) + "," + std::to_string(side);
        fs::create_directory(_folder / "out");
        writeFile(_folder / "a.raw", rawBytes(makeSamples(side, side, side)));
        _arguments = {"render", (_folder / "a.raw").string(),         "--dims",      dims,     "--type", "int16",
                      "-o",     (_folder / "out" / "a.png").string(), "--adjacency", "N6,N26", "--size", "300x150"};
    }

    TemporaryFolder _folder;
    std::vector<std::string> _arguments;
};

TEST_F(Progress, ShowsEachStageOnATerminalAndWipesIt) {
    ToolRun const run = runToolOnTerminal(_arguments);
    EXPECT_EQ(run.status, 0) << run.error;
    for (std::string const stage : {"reading", "threshold", "counting", "scanning", "drawing"}) {
        EXPECT_NE(run.error.find("\r" + stage), std::string::npos) << stage;
    }
    EXPECT_EQ(run.error.find('\n'), std::string::npos);
    std::string const wiped = "\r\033[K";
    EXPECT_EQ(run.error.rfind(wiped), run.error.size() - wiped.size());
}

TEST_F(Progress, RisesWhileTheSurfaceIsScannedAndDrawn) {
    ToolRun const run = runToolOnTerminal(_arguments);
    for (std::string const stage : {"scanning", "drawing"}) {
        // Two systems: the stage begins twice, and shows steps between.
        std::size_t shown = 0;
        for (auto at = run.error.find(stage); at != std::string::npos; at = run.error.find(stage, at + 1)) {
            ++shown;
        }
        EXPECT_GT(shown, 2U) << stage << run.error;
    }
}

TEST_F(Progress, EndsCleanlyAtCtrlCInEveryStage) {
    for (std::string const stage : {"reading", "threshold", "counting", "scanning", "drawing"}) {
        ToolRun const run = runToolOnTerminal(_arguments, stage);
        EXPECT_EQ(run.status, 128 + SIGINT) << stage << run.error;
        // The line of progress gives way to the message.
        std::string const message = "\r\033[Ktamo: cancelled; nothing was written\r\n";
        EXPECT_EQ(run.error.rfind(message), run.error.size() - message.size()) << stage << run.error;
        EXPECT_TRUE(fs::is_empty(_folder / "out")) << stage;
    }
}

} // namespace
