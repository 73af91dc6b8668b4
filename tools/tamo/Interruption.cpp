// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Interruption.h"

#include "Progress.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>
#include <unistd.h>

namespace {

// What a signal handler may touch: plain storage, and a flag that says whether it holds a path.
std::array<char, 4096> unfinishedFile;
std::atomic<bool> hasUnfinishedFile{false};

extern "C" void stopProgram(int signal) {
    if (hasUnfinishedFile) {
        unlink(unfinishedFile.data());
    }
    static constexpr char kMessage[] = "tamo: cancelled; no picture was written\n";
    [[maybe_unused]] auto const written = write(tamo::Progress::terminal(), kMessage, sizeof kMessage - 1);
    // Dying of the signal itself tells the calling shell that this was a cancellation.
    raise(signal);
}

} // namespace

namespace tamo {

void installInterruption() {
    struct sigaction action = {};
    action.sa_handler = stopProgram;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (int const signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(signal, &action, nullptr);
    }
}

void setUnfinishedFile(std::string const& path) {
    hasUnfinishedFile = false;
    if (!path.empty() && path.size() < unfinishedFile.size()) {
        std::memcpy(unfinishedFile.data(), path.c_str(), path.size() + 1);
        hasUnfinishedFile = true;
    }
}

} // namespace tamo
