// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../options/AdjacencyNames.h"
#include "../volume/BinaryVolume.h"
#include "../volume/VolumeReader.h"

#include "picture/PictureSize.h"
#include "picture/View.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace tamo::tool {

struct RenderOptions {
    VolumeSource source;
    std::filesystem::path output;
    std::optional<double> min;
    std::optional<double> max;
    /// At least one; each has a panel of the picture.
    std::vector<NamedSystem> systems;
    int step = 1;
    std::optional<Box> box;
    picture::PictureSize size{};
    picture::View view{};
    bool isVerbose = false;
};

/// Draws the surface of a volume's foreground into a PNG file, once a system, and prints its figures.
void renderVolume(RenderOptions const& options);

} // namespace tamo::tool
