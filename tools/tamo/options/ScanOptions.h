// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "OptionList.h"
#include "ScanRegion.h"

#include <optional>
#include <string>

namespace tamo::tool {

/// The options that say which voxels of a volume are used.
class ScanOptions {
  public:
    explicit ScanOptions(OptionList const& options);

    /// Returns the box and a step that fits into it; whether the box lies in the volume remains to be seen. Throws
    /// `UsageError`.
    [[nodiscard]] ScanRegion read() const;

  private:
    [[nodiscard]] std::optional<volume::Box> readBox() const;

    std::string _step = "1";
    std::string _box;
};

} // namespace tamo::tool
