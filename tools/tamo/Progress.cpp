// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Progress.h"

#include <algorithm>
#include <atomic>
#include <unistd.h>

namespace {

std::atomic<int> terminalDescriptor{STDERR_FILENO};

void show(std::string const& text) {
    // A progress line that cannot be written is no reason to stop.
    [[maybe_unused]] auto const written = write(terminalDescriptor, text.data(), text.size());
}

} // namespace

namespace tamo {

Progress::Progress(std::string stage) : _stage(std::move(stage)) {}

Progress::~Progress() {
    if (_drawn) {
        show("\r\033[K");
    }
}

void Progress::setTerminal(int descriptor) { terminalDescriptor = descriptor; }

int Progress::terminal() { return terminalDescriptor; }

void Progress::update(double fraction) {
    auto const now = std::chrono::steady_clock::now();
    if (now < _nextDraw || isatty(terminalDescriptor) == 0) {
        return;
    }
    _nextDraw = now + std::chrono::milliseconds(100);
    _drawn = true;
    constexpr int kWidth = 40;
    double const shown = std::clamp(fraction, 0.0, 1.0);
    auto const filled = static_cast<std::size_t>(shown * kWidth);
    std::string bar(kWidth, ' ');
    std::fill_n(bar.begin(), filled, '#');
    show("\r" + _stage + std::string(_stage.size() < 12 ? 12 - _stage.size() : 1, ' ') + "[" + bar + "] " +
         std::to_string(static_cast<int>(shown * 100)) + " %\033[K");
}

} // namespace tamo
