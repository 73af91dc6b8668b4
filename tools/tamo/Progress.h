// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <chrono>
#include <string>

namespace tamo {

/// Shows how far a stage has come, as one line on standard error that is wiped at the end; only on a terminal.
class Progress {
  public:
    explicit Progress(std::string stage);
    ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    /// Shows `fraction`, in [0, 1]. Cheap enough for every slice: draws ten times a second at most.
    void update(double fraction);

    /// Names the descriptor that stands for standard error while that one is redirected.
    static void setTerminal(int descriptor);
    /// Returns that descriptor; a signal handler may ask.
    static int terminal();

  private:
    std::string _stage;
    std::chrono::steady_clock::time_point _nextDraw{};
    bool _drawn = false;
};

} // namespace tamo
