// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../options/AdjacencyOption.h"
#include "../options/ConfigurationsOption.h"
#include "../options/OutputOption.h"
#include "../options/PictureOptions.h"
#include "Command.h"

#include <string>

namespace tamo::tool {

/// Draws cell configurations with their polygons, one tile each, into a PNG file. One system fills rows of at most 16
/// tiles; several have a column each.
class AtlasCommand : public Command {
  public:
    explicit AtlasCommand(CLI::App& program);
    void run() const override;
    [[nodiscard]] std::string memoryMessage() const override;

  private:
    OutputOption _output;
    AdjacencyOption _adjacency;
    ConfigurationsOption _configurations;
    PictureOptions _picture;
};

} // namespace tamo::tool
