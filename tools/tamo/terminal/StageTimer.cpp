// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "StageTimer.h"

#include <fstream>
#include <iomanip>
#include <ostream>

namespace tamo::tool {

namespace {

// Makes Linux forget the largest resident size so far, so that each stage has a peak of its own.
void resetPeakMemory() { std::ofstream("/proc/self/clear_refs") << "5"; }

std::uint64_t peakMemory() {
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key) {
        if (key == "VmHWM:") {
            std::uint64_t kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
        status.ignore(1 << 16, '\n');
    }
    return 0;
}

} // namespace

StageTimer::Measurement::Measurement(StageTimer& timer, std::string name) : _timer(timer), _name(std::move(name)) {
    resetPeakMemory();
    _start = std::chrono::steady_clock::now();
}

StageTimer::Measurement::~Measurement() {
    std::chrono::duration<double> const elapsed = std::chrono::steady_clock::now() - _start;
    _timer._stages.push_back({_name, elapsed.count(), peakMemory()});
}

void StageTimer::print(std::ostream& out) const {
    constexpr double kMebibyte = 1024.0 * 1024.0;
    for (Stage const& stage : _stages) {
        out << std::left << std::setw(12) << stage.name << std::right << std::fixed << std::setprecision(3)
            << std::setw(9) << stage.seconds << " s" << std::setprecision(0) << std::setw(8)
            << static_cast<double>(stage.peakBytes) / kMebibyte << " MiB\n";
    }
}

} // namespace tamo::tool
