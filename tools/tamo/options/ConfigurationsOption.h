// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "OptionList.h"

#include <string>
#include <vector>

namespace tamo::tool {

/// The option that names configurations of the cell.
class ConfigurationsOption {
  public:
    explicit ConfigurationsOption(OptionList const& options);

    /// Returns numbers from 0 to 255, none where the option is not given. Throws `UsageError`.
    [[nodiscard]] std::vector<int> read() const;

  private:
    std::string _text;
};

} // namespace tamo::tool
