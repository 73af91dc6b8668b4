// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>

namespace {

namespace fs = std::filesystem;

// Draws a volume into the folder `out` and sends `signal` on the way.
ToolRun interruptRender(TemporaryFolder const& folder, int signal, bool isIgnored) {
    fs::create_directory(folder / "out");
    Samples const samples = makeSamples(120, 120, 120);
    writeBytes(folder / "a.raw", rawBytes(samples, /*isBigEndian=*/false));
    // The unfinished picture shows that the run is under way, however fast or busy the machine.
    std::vector<std::string> arguments{
        "render", (folder / "a.raw").string(),        "--dims", "120,120,120", "--type", "int16",
        "-o",     (folder / "out" / "a.png").string()};
    if (isIgnored) {
        // This run goes to its end.
        arguments.insert(arguments.end(), {"--step", "8", "--size", "60x60"});
    }
    return interruptTool(
        arguments, signal, [&folder] { return !fs::is_empty(folder / "out"); }, isIgnored);
}

class Interruption : public testing::TestWithParam<int> {};

TEST_P(Interruption, LeavesNoPartOfAPictureAndEndsByItsSignal) {
    TemporaryFolder const folder;
    ToolRun const run = interruptRender(folder, GetParam(), /*isIgnored=*/false);
    // What a shell shows of a program that a signal ended.
    EXPECT_EQ(run.status, 128 + GetParam()) << run.error;
    EXPECT_EQ(run.error, "tamo: cancelled; no picture was written\n");
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

TEST_P(Interruption, DoesNotHappenByASignalThatTheCallerIgnores) {
    TemporaryFolder const folder;
    ToolRun const run = interruptRender(folder, GetParam(), /*isIgnored=*/true);
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.error, "");
    EXPECT_TRUE(fs::exists(folder / "out" / "a.png"));
}

INSTANTIATE_TEST_SUITE_P(Signals, Interruption, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](auto const& instance) { return std::string(sigabbrev_np(instance.param)); });

} // namespace
