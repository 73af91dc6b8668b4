// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <CLI/CLI.hpp>

#include <optional>
#include <string>

namespace tamo::tool {

/// The options that say which values are foreground.
class RangeOptions {
  public:
    /// Holds the smallest and the largest of these values, where they are given.
    struct Limits {
        std::optional<double> min;
        std::optional<double> max;
    };

    explicit RangeOptions(CLI::App& command);

    /// Throws `UsageError` for values that are not numbers or not a range.
    [[nodiscard]] Limits read() const;

  private:
    std::string _min;
    std::string _max;
};

} // namespace tamo::tool
