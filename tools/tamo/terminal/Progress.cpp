// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Progress.h"

#include <algorithm>
#include <atomic>
#include <unistd.h>

namespace tamo::tool {

namespace {

std::atomic<int> terminalDescriptor{STDERR_FILENO};
std::atomic<bool> hasLine{false};

} // namespace

Progress::Progress(std::string stage) : _stage(std::move(stage)) {}

Progress::~Progress() { wipe(); }

void Progress::setTerminal(int descriptor) { terminalDescriptor = descriptor; }

int Progress::terminal() { return terminalDescriptor; }

void Progress::wipe() {
    if (hasLine.exchange(false)) {
        static constexpr char kWipe[] = "\r\033[K";
        [[maybe_unused]] auto const written = write(terminalDescriptor, kWipe, sizeof kWipe - 1);
    }
}

void Progress::show(std::string const& text) const {
    if (isatty(terminalDescriptor) == 0) {
        return;
    }
    constexpr std::size_t kNameWidth = 12;
    std::string const gap(_stage.size() < kNameWidth ? kNameWidth - _stage.size() : 1, ' ');
    std::string const line = "\r" + _stage + gap + text + "\033[K";
    hasLine = true;
    // A progress line that cannot be written is no reason to stop.
    [[maybe_unused]] auto const written = write(terminalDescriptor, line.data(), line.size());
}

void Progress::announce() { show("..."); }

void Progress::update(double fraction) {
    auto const now = std::chrono::steady_clock::now();
    if (now < _nextDraw) {
        return;
    }
    _nextDraw = now + std::chrono::milliseconds(100);
    constexpr int kWidth = 40;
    double const shown = std::clamp(fraction, 0.0, 1.0);
    auto const filled = static_cast<std::size_t>(shown * kWidth);
    std::string bar(kWidth, ' ');
    std::fill_n(bar.begin(), filled, '#');
    show("[" + bar + "] " + std::to_string(static_cast<int>(shown * 100)) + " %");
}

} // namespace tamo::tool
