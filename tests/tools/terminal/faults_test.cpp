// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

namespace {

namespace fs = std::filesystem;

// Loads a library ahead of the program's own while it lives.
class PreloadedLibrary {
  public:
    explicit PreloadedLibrary(char const* path) {
        setenv("LD_PRELOAD", path, /*overwrite=*/1);
        // The address sanitizer insists on being the first library, though nothing here depends on it.
        char const* const options = std::getenv("ASAN_OPTIONS");
        _options = options == nullptr ? "" : options;
        setenv("ASAN_OPTIONS", (_options + ":verify_asan_link_order=0").c_str(), /*overwrite=*/1);
    }
    ~PreloadedLibrary() {
        unsetenv("LD_PRELOAD");
        setenv("ASAN_OPTIONS", _options.c_str(), /*overwrite=*/1);
    }
    PreloadedLibrary(PreloadedLibrary const&) = delete;
    PreloadedLibrary& operator=(PreloadedLibrary const&) = delete;

  private:
    std::string _options;
};

// Draws a small volume; the picture belongs into the folder `out`.
ToolRun render(TemporaryFolder const& folder, std::vector<std::string> const& options) {
    fileFormats().front().write(makeSamples(8, 7, 6), folder / "a.nii");
    fs::create_directory(folder / "out");
    std::vector<std::string> arguments{
        "render", (folder / "a.nii").string(), "-o", (folder / "out" / "a.png").string(), "--size", "20x20"};
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
    PreloadedLibrary const library(TAMO_INTERRUPTED_MKSTEMP);
    ToolRun const run = render(folder, {});
    EXPECT_EQ(run.status, 128 + SIGINT) << run.error;
    EXPECT_EQ(run.error, "tamo: cancelled; no picture was written\n");
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

} // namespace
