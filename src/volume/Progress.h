// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <exception>
#include <functional>

namespace tamo::volume {

/// Is told how far a reading has come, in [0, 1], every few slices or more often; returns whether to go on. It may be
/// empty. Called on the thread that reads. What it throws comes out of the function that reads, as `Cancelled` does:
/// nothing is left open or allocated.
using Progress = std::function<bool(double)>;

/// Reports that a `Progress` did not want to go on.
class Cancelled : public std::exception {
  public:
    [[nodiscard]] char const* what() const noexcept override { return "cancelled"; }
};

/// Tells `progress`, where there is one, a fraction. Throws `Cancelled` where it does not want to go on.
inline void report(Progress const& progress, double fraction) {
    if (progress && !progress(fraction)) {
        throw Cancelled();
    }
}

} // namespace tamo::volume
