// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/PreloadedLibrary.h"
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

namespace {

namespace fs = std::filesystem;

// Draws a small volume; the picture belongs into the folder `out`.
ToolRun render(TemporaryFolder const& folder, std::vector<std::string> const& options) {
    writeMetaImage(makeSamples(8, 7, 6), folder / "a.mha");
    fs::create_directory(folder / "out");
    std::vector<std::string> arguments{
        "render", (folder / "a.mha").string(), "-o", (folder / "out" / "a.png").string(), "--size", "20x20"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return runTool(arguments);
}

#ifdef TAMO_REFUSED_SCAN
TEST(ScanWithoutMemory, IsOneLineThatNamesTheStep) {
    TemporaryFolder const folder;
    PreloadedLibrary const library(TAMO_REFUSED_SCAN);
    ToolRun const run = render(folder, {"--step", "2"});
    EXPECT_TRUE(isInputRefusal(run, "--step 2: expected")) << run.status << " " << run.error;
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

TEST(CommandWithoutMemory, SaysWhatOfItsOwnTakesLess) {
    TemporaryFolder const folder;
    PreloadedLibrary const library(TAMO_NO_MEMORY);
    EXPECT_TRUE(isInputRefusal(render(folder, {}), "memory for this volume; a larger --step"));
    ToolRun const run = runTool({"atlas", "-o", (folder / "out" / "a.png").string()});
    EXPECT_TRUE(isInputRefusal(run, "memory for this sheet; a smaller --size")) << run.status << " " << run.error;
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}
#endif

TEST(MissingOpenGL, ShowsBeforeTheVolumeIsRead) {
    TemporaryFolder const folder;
    PreloadedLibrary const library(TAMO_MISSING_OPENGL);
    ToolRun const run = render(folder, {});
    EXPECT_TRUE(isInputRefusal(run, "offscreen OpenGL: expected a display")) << run.status << " " << run.error;
    EXPECT_EQ(run.output, "");
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

TEST(EarlyInterruption, RemovesAPictureThatHasOnlyJustBeenMade) {
    TemporaryFolder const folder;
    PreloadedLibrary const library(TAMO_NO_NAMELESS_FILES);
    setenv("TAMO_TEST_EARLY_CTRL_C", "1", /*overwrite=*/1);
    ToolRun const run = render(folder, {});
    unsetenv("TAMO_TEST_EARLY_CTRL_C");
    EXPECT_EQ(run.status, 128 + SIGINT) << run.error;
    EXPECT_EQ(run.error, "tamo: cancelled; nothing was written\n");
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

} // namespace
