// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../options/VolumeOptions.h"
#include "Command.h"

#include <string>

namespace tamo::tool {

/// Prints what a volume's file says, and what its voxels are.
class InfoCommand : public Command {
  public:
    explicit InfoCommand(CLI::App& program);
    void run() const override;
    [[nodiscard]] std::string memoryMessage() const override;

  private:
    VolumeOptions _volume;
    bool _isJson = false;
};

} // namespace tamo::tool
