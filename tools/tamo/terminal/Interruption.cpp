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

// By which people and systems stop a program: it says so.
constexpr std::array<int, 4> kStops{SIGINT, SIGTERM, SIGHUP, SIGQUIT};
// All others that end a program unless it handles them, and that it can handle: limits of time and size, timers, pipes,
// and its own faults.
constexpr std::array<int, 16> kEnds{SIGALRM, SIGVTALRM, SIGPROF, SIGXCPU, SIGXFSZ, SIGPIPE, SIGUSR1, SIGUSR2,
                                    SIGPOLL, SIGABRT,   SIGSEGV, SIGBUS,  SIGFPE,  SIGILL,  SIGSYS,  SIGTRAP};

// What a signal handler may touch: plain storage, and a flag that says whether it holds a path.
std::array<char, 4096> unfinishedFile;
std::atomic<bool> hasUnfinishedFile{false};

void removeUnfinishedFile() {
    if (hasUnfinishedFile) {
        unlink(unfinishedFile.data());
    }
}

extern "C" void stopProgram(int signal) {
    removeUnfinishedFile();
    Progress::wipe();
    static constexpr char kMessage[] = "tamo: cancelled; nothing was written\n";
    [[maybe_unused]] auto const written = write(Progress::terminal(), kMessage, sizeof kMessage - 1);
    // Dying of the signal itself tells the calling shell that this was a cancellation.
    raise(signal);
}

extern "C" void endProgram(int signal) {
    removeUnfinishedFile();
    raise(signal);
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    struct sigaction inherited = {};
    sigaction(signal, nullptr, &inherited);
    // Handlers of others, as the sanitizers have, know better.
    if (inherited.sa_handler == SIG_DFL) {
        sigaction(signal, &action, nullptr);
    }
}

} // namespace

void installInterruption() {
    for (int const signal : kStops) {
        handle(signal, stopProgram);
    }
    for (int const signal : kEnds) {
        handle(signal, endProgram);
    }
}

HeldInterruption::HeldInterruption() : _before() {
    sigset_t held;
    sigfillset(&held);
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
