// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../options/AdjacencyOption.h"
#include "../options/OutputOption.h"
#include "../options/PictureOptions.h"
#include "../options/RangeOptions.h"
#include "../options/ScanOptions.h"
#include "../options/VolumeOptions.h"
#include "Command.h"

#include <string>

namespace tamo::tool {

/// Draws the surface of a volume's foreground into a PNG file, once per adjacency system, and prints its figures.
class RenderCommand : public Command {
  public:
    explicit RenderCommand(CLI::App& program);
    void run() const override;
    [[nodiscard]] std::string memoryMessage() const override;

  private:
    VolumeOptions _volume;
    OutputOption _output;
    RangeOptions _range;
    AdjacencyOption _adjacency;
    ScanOptions _scan;
    PictureOptions _picture;
    bool _isVerbose = false;
};

} // namespace tamo::tool
