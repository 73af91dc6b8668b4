// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Interruption.h"

#include "Progress.h"

#include <array>
#include <atomic>
#include <cstring>
#include <unistd.h>

namespace tamo::tool {

namespace {

constexpr std::array<int, 3> kSignals{SIGINT, SIGTERM, SIGHUP};

// What a signal handler may touch: plain storage, and a flag that says whether it holds a path.
std::array<char, 4096> unfinishedFile;
std::atomic<bool> hasUnfinishedFile{false};

extern "C" void stopProgram(int signal) {
    if (hasUnfinishedFile) {
        unlink(unfinishedFile.data());
    }
    Progress::wipe();
    static constexpr char kMessage[] = "tamo: cancelled; no picture was written\n";
    [[maybe_unused]] auto const written = write(Progress::terminal(), kMessage, sizeof kMessage - 1);
    // Dying of the signal itself tells the calling shell that this was a cancellation.
    raise(signal);
}

} // namespace

void installInterruption() {
    struct sigaction action = {};
    action.sa_handler = stopProgram;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (int const signal : kSignals) {
        struct sigaction inherited = {};
        sigaction(signal, nullptr, &inherited);
        if (inherited.sa_handler != SIG_IGN) {
            sigaction(signal, &action, nullptr);
        }
    }
}

HeldInterruption::HeldInterruption() : _before() {
    sigset_t held;
    sigemptyset(&held);
    for (int const signal : kSignals) {
        sigaddset(&held, signal);
    }
    pthread_sigmask(SIG_BLOCK, &held, &_before);
}

HeldInterruption::~HeldInterruption() { pthread_sigmask(SIG_SETMASK, &_before, nullptr); }

void setUnfinishedFile(std::string const& path) {
    hasUnfinishedFile = false;
    if (!path.empty() && path.size() < unfinishedFile.size()) {
        std::memcpy(unfinishedFile.data(), path.c_str(), path.size() + 1);
        hasUnfinishedFile = true;
    }
}

} // namespace tamo::tool
