// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// The file of a volume that holds its voxels, or the last part of them.
fs::path voxelFile(fs::path const& folder, FileFormat const& format) {
    fs::path path = folder / format.fileName;
    if (fs::is_directory(path)) {
        std::vector<fs::path> slices{fs::directory_iterator(path), {}};
        return slices.front();
    }
    for (char const* const detached : {"a.zraw", "a.data"}) {
        if (fs::exists(folder / detached)) {
            return folder / detached;
        }
    }
    return path;
}

class Truncation : public testing::TestWithParam<FileFormat> {};

TEST_P(Truncation, IsRefusedInOneLineWhereverTheFileEnds) {
    TemporaryFolder const folder;
    GetParam().write(makeSamples(19, 17, 11), folder / GetParam().fileName);
    fs::path const file = voxelFile(folder.path(), GetParam());
    std::string const whole = readBytes(file);
    // The last line end of a file of text is no loss.
    std::size_t const last = whole.size() - (whole.back() == '\n' ? 2 : 1);
    for (std::size_t const bytes : {std::size_t{0}, std::size_t{3}, std::size_t{120}, whole.size() / 2,
                                    whole.size() * 3 / 4, whole.size() - 20, last}) {
        // Where a text of numbers ends within its last number, that number is only another one.
        if (GetParam().name == "NrrdText" && bytes == last) {
            continue;
        }
        SCOPED_TRACE(testing::Message() << bytes << " of " << whole.size() << " bytes");
        writeBytes(file, whole.substr(0, bytes));
        ToolRun const run = runTool({"info", (folder / GetParam().fileName).string()});
        EXPECT_TRUE(isInputRefusal(run, folder.path().string())) << run.status << " " << run.error;
        EXPECT_EQ(run.output, "");
    }
}

TEST_P(Truncation, LeavesNoPicture) {
    TemporaryFolder const folder;
    fs::create_directory(folder / "pictures");
    GetParam().write(makeSamples(19, 17, 11), folder / GetParam().fileName);
    fs::path const file = voxelFile(folder.path(), GetParam());
    writeBytes(file, readBytes(file).substr(0, fs::file_size(file) / 2));
    ToolRun const run =
        runTool({"render", (folder / GetParam().fileName).string(), "-o", (folder / "pictures" / "a.png").string()});
    EXPECT_TRUE(isInputRefusal(run, folder.path().string())) << run.status << " " << run.error;
    EXPECT_TRUE(fs::is_empty(folder / "pictures"));
}

INSTANTIATE_TEST_SUITE_P(All, Truncation, testing::ValuesIn(fileFormats()),
                         [](auto const& instance) { return instance.param.name; });

} // namespace
