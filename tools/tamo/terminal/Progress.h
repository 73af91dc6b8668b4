// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace tamo::tool {

/// Shows how far a stage has come, as one line on standard error that is wiped at the end; only on a terminal.
/// Only one may exist at a time.
class Progress {
  public:
    explicit Progress(std::string stage);
    ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    /// Shows the stage's name alone, for work that cannot tell how far it is.
    void announce();
    /// Shows `fraction`, in [0, 1]. Cheap enough for every slice: draws ten times a second at most.
    void update(double fraction);

    /// Returns `update`, for work that knows of no terminal; it always returns true, to go on. Valid as long as this.
    [[nodiscard]] std::function<bool(double)> callback() {
        return [this](double fraction) {
            update(fraction);
            return true;
        };
    }

    /// Names the descriptor that stands for standard error while that one is redirected.
    static void setTerminal(int descriptor);
    /// Returns that descriptor; a signal handler may ask.
    static int terminal();
    /// Wipes the line where one is shown; a signal handler may ask for it.
    static void wipe();

  private:
    void show(std::string const& text) const;

    std::string _stage;
    std::chrono::steady_clock::time_point _nextDraw{};
};

} // namespace tamo::tool
