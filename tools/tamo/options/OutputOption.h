// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "OptionList.h"

#include <filesystem>
#include <string>

namespace tamo::tool {

/// The option that names the picture to write.
class OutputOption {
  public:
    explicit OutputOption(OptionList const& options);

    /// Throws `UsageError` for a name that does not end in .png.
    [[nodiscard]] std::filesystem::path read() const;

  private:
    std::string _text;
};

} // namespace tamo::tool
