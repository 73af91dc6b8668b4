// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/PngPicture.h"
#include "tools/support/PreloadedLibrary.h"
#include "tools/support/ToolRun.h"

#include <gtest/gtest.h>

#include <optional>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

// With and without files that have no name.
class OutputFile : public testing::TestWithParam<bool> {
  protected:
    OutputFile() {
        if (!GetParam()) {
            _library.emplace(TAMO_NO_NAMELESS_FILES);
        }
    }

    ToolRun draw(fs::path const& picture) {
        return runTool({"atlas", "-o", picture.string(), "--size", "20x20", "--configurations", "1"});
    }

    std::optional<PreloadedLibrary> _library;
    TemporaryFolder _folder;
};

mode_t modeOf(fs::path const& path) {
    struct stat status = {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

TEST_P(OutputFile, IsAsOpenAsAnyNewFile) {
    mode_t const mask = umask(027);
    EXPECT_EQ(draw(_folder / "a.png").status, 0);
    umask(mask);
    EXPECT_EQ(modeOf(_folder / "a.png"), 0640U);
    EXPECT_EQ(PngPicture(_folder / "a.png").width(), 20);
    EXPECT_EQ(std::distance(fs::directory_iterator(_folder.path()), {}), 1);
}

TEST_P(OutputFile, KeepsThePermissionsOfTheOlderFile) {
    writeFile(_folder / "a.png", "old");
    chmod((_folder / "a.png").c_str(), 0604);
    EXPECT_EQ(draw(_folder / "a.png").status, 0);
    EXPECT_EQ(modeOf(_folder / "a.png"), 0604U);
    EXPECT_EQ(PngPicture(_folder / "a.png").width(), 20);
}

TEST_P(OutputFile, GoesWhereASymbolicLinkLeads) {
    fs::create_directory(_folder / "below");
    writeFile(_folder / "below" / "a.png", "old");
    fs::create_symlink(fs::path("below") / "a.png", _folder / "link.png");
    fs::create_symlink("link.png", _folder / "second.png");
    fs::create_symlink("missing.png", _folder / "dangling.png");
    EXPECT_EQ(draw(_folder / "second.png").status, 0);
    EXPECT_EQ(draw(_folder / "dangling.png").status, 0);
    EXPECT_TRUE(fs::is_symlink(_folder / "link.png") && fs::is_symlink(_folder / "second.png") &&
                fs::is_symlink(_folder / "dangling.png"));
    EXPECT_EQ(PngPicture(_folder / "below" / "a.png").width(), 20);
    EXPECT_EQ(PngPicture(_folder / "missing.png").width(), 20);
}

TEST_P(OutputFile, IsOneWithItsHardLinks) {
    writeFile(_folder / "a.png", std::string(100000, 'x'));
    fs::create_hard_link(_folder / "a.png", _folder / "b.png");
    EXPECT_EQ(draw(_folder / "a.png").status, 0);
    EXPECT_TRUE(fs::equivalent(_folder / "a.png", _folder / "b.png"));
    EXPECT_EQ(PngPicture(_folder / "b.png").width(), 20);
    EXPECT_LT(fs::file_size(_folder / "b.png"), 100000U);
}

TEST_P(OutputFile, IsNotPutInThePlaceOfOneThatMayNotBeWritten) {
    writeFile(_folder / "a.png", "old");
    chmod((_folder / "a.png").c_str(), 0444);
    ToolRun const run = draw(_folder / "a.png");
    EXPECT_TRUE(isInputRefusal(run, "a.png: expected a file that may be written")) << run.error;
    EXPECT_EQ(readFile(_folder / "a.png"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(_folder.path()), {}), 1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, OutputFile, testing::Bool(), [](auto const& instance) {
    return std::string(instance.param ? "WithNamelessFiles" : "WithNamedFiles");
});

} // namespace
