// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace tamo::tool {

/// Measures wall time and peak memory of the stages of a run.
class StageTimer {
  public:
    /// Runs `work` as the stage `name` and returns its result.
    template <typename Work> auto run(std::string name, Work&& work) {
        Measurement const measurement(*this, std::move(name));
        return std::forward<Work>(work)();
    }

    /// Writes one line per stage: seconds, and the largest resident memory of the process while the stage ran.
    void print(std::ostream& out) const;

  private:
    struct Stage {
        std::string name;
        double seconds;
        std::uint64_t peakBytes;
    };

    class Measurement {
      public:
        Measurement(StageTimer& timer, std::string name);
        ~Measurement();
        Measurement(Measurement const&) = delete;
        Measurement& operator=(Measurement const&) = delete;

      private:
        StageTimer& _timer;
        std::string _name;
        std::chrono::steady_clock::time_point _start;
    };

    std::vector<Stage> _stages;
};

} // namespace tamo::tool
