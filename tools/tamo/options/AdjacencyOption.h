// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "NamedSystem.h"
#include "OptionList.h"

#include <string>
#include <vector>

namespace tamo::tool {

/// The option that names adjacency systems.
class AdjacencyOption {
  public:
    /// `several` says in the help text what happens to several systems.
    AdjacencyOption(OptionList const& options, std::string const& several);

    /// Returns the systems, at least one. Throws `UsageError` for an unknown name.
    [[nodiscard]] std::vector<NamedSystem> read() const;

    /// Throws `UsageError` that names the option and says what was expected of it.
    [[noreturn]] void refuse(std::string const& expected) const;

  private:
    std::string _text = "N14II";
};

} // namespace tamo::tool
