// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../volume/Box.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>

namespace tamo::tool {

/// Are the options that say which voxels of a volume are used.
class ScanOptions {
  public:
    explicit ScanOptions(CLI::App& command);

    /// Returns the distance of the voxels used, at least 1. Throws `UsageError`.
    [[nodiscard]] int readStep() const;
    /// Returns the box where there is one; it need not lie in the volume. Throws `UsageError`.
    [[nodiscard]] std::optional<Box> readBox() const;

  private:
    std::string _step = "1";
    std::string _box;
};

} // namespace tamo::tool
