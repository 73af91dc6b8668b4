// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>

namespace {

namespace fs = std::filesystem;

class Interruption : public testing::TestWithParam<int> {};

TEST_P(Interruption, LeavesNoPartOfAPictureAndEndsByItsSignal) {
    TemporaryFolder const folder;
    fs::create_directory(folder / "out");
    Samples const samples = makeSamples(120, 120, 120);
    writeBytes(folder / "a.raw", rawBytes(samples, /*isBigEndian=*/false));
    // The unfinished picture shows that the run is under way, however fast or busy the machine.
    ToolRun const run = interruptTool({"render", (folder / "a.raw").string(), "--dims", "120,120,120", "--type",
                                       "int16", "-o", (folder / "out" / "a.png").string()},
                                      GetParam(), [&folder] { return !fs::is_empty(folder / "out"); });
    // What a shell shows of a program that a signal ended.
    EXPECT_EQ(run.status, 128 + GetParam()) << run.error;
    EXPECT_EQ(run.error, "tamo: cancelled; no picture was written\n");
    EXPECT_TRUE(fs::is_empty(folder / "out"));
}

INSTANTIATE_TEST_SUITE_P(Signals, Interruption, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](auto const& instance) { return std::string(sigabbrev_np(instance.param)); });

} // namespace
