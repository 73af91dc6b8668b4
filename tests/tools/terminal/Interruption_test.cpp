// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/PreloadedLibrary.h"
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstring>

namespace {

namespace fs = std::filesystem;

// Draws a volume into the folder `out` and sends `signal` at some time.
ToolRun interruptRender(TemporaryFolder const& folder, int signal, std::function<bool()> const& isTime,
                        std::vector<std::string> const& options = {}) {
    fs::create_directory(folder / "out");
    writeFile(folder / "a.raw", rawBytes(makeSamples(120, 120, 120)));
    std::vector<std::string> arguments{
        "render", (folder / "a.raw").string(),        "--dims", "120,120,120", "--type", "int16",
        "-o",     (folder / "out" / "a.png").string()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return interruptTool(arguments, signal, isTime, !options.empty());
}

// Interrupts the run once the unfinished picture shows that it is under way, however fast or busy the machine.
ToolRun interruptOnceUnderWay(TemporaryFolder const& folder, int signal, std::vector<std::string> const& options = {}) {
    PreloadedLibrary const library(TAMO_NO_NAMELESS_FILES);
    return interruptRender(
        folder, signal, [&folder] { return !fs::is_empty(folder / "out"); }, options);
}

class Stop : public testing::TestWithParam<int> {};

TEST_P(Stop, LeavesNoPartOfAPictureAndEndsByItsSignal) {
    TemporaryFolder const folder;
    ToolRun const run = interruptOnceUnderWay(folder, GetParam());
    // What a shell shows of a program that a signal ended.
    EXPECT_EQ(run.status, 128 + GetParam()) << run.error;
    EXPECT_EQ(run.error, "tamo: cancelled; nothing was written\n");
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

TEST_P(Stop, DoesNotHappenByASignalThatTheCallerIgnores) {
    TemporaryFolder const folder;
    // This run goes to its end.
    ToolRun const run = interruptOnceUnderWay(folder, GetParam(), {"--step", "8", "--size", "60x60"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.error, "");
    EXPECT_TRUE(fs::exists(folder / "out" / "a.png"));
}

INSTANTIATE_TEST_SUITE_P(Signals, Stop, testing::Values(SIGINT, SIGTERM, SIGHUP, SIGQUIT),
                         [](auto const& instance) { return std::string(sigabbrev_np(instance.param)); });

class End : public testing::TestWithParam<int> {};

TEST_P(End, LeavesNoPartOfAPicture) {
    TemporaryFolder const folder;
    ToolRun const run = interruptOnceUnderWay(folder, GetParam());
    EXPECT_EQ(run.status, 128 + GetParam()) << run.error;
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

INSTANTIATE_TEST_SUITE_P(Signals, End,
                         testing::Values(SIGALRM, SIGVTALRM, SIGPROF, SIGXCPU, SIGXFSZ, SIGPIPE, SIGUSR1, SIGUSR2,
                                         SIGPOLL, SIGABRT, SIGSYS, SIGTRAP),
                         [](auto const& instance) { return std::string(sigabbrev_np(instance.param)); });

// Even SIGKILL leaves nothing on file systems that have files without a name, whenever it comes.
TEST(Kill, LeavesNoPartOfAPictureButWhereFilesNeedAName) {
    for (int const milliseconds : {20, 60, 150, 300}) {
        TemporaryFolder const folder;
        auto const start = std::chrono::steady_clock::now();
        ToolRun const run = interruptRender(folder, SIGKILL, [&] {
            return std::chrono::steady_clock::now() - start > std::chrono::milliseconds(milliseconds);
        });
        EXPECT_TRUE(run.status == 0 || run.status == 128 + SIGKILL) << run.status;
        EXPECT_EQ(fs::is_empty(folder / "out"), run.status != 0) << milliseconds;
    }
}

} // namespace
