// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../foreground/Foreground.h"
#include "OptionList.h"

#include <string>

namespace tamo::tool {

/// The options that say which values are foreground.
class RangeOptions {
  public:
    explicit RangeOptions(OptionList const& options);

    /// Throws `UsageError` for values that are not numbers, not a range, or contradict each other.
    [[nodiscard]] ForegroundWish read() const;

  private:
    std::string _min;
    std::string _max;
    std::string _as;
};

} // namespace tamo::tool
