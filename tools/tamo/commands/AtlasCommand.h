// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../options/AdjacencyNames.h"

#include "picture/PictureSize.h"
#include "picture/View.h"

#include <filesystem>
#include <vector>

namespace tamo::tool {

struct AtlasOptions {
    std::filesystem::path output;
    /// At least one.
    std::vector<NamedSystem> systems;
    /// Each from 0 to 255; all of them where none is named, which takes a single system.
    std::vector<int> configurations;
    picture::PictureSize size{};
    picture::View view{};
};

/// Draws cell configurations with their polygons, a tile each, into a PNG file. One system fills rows of at most 16
/// tiles; several have a column each.
void drawAtlas(AtlasOptions const& options);

} // namespace tamo::tool
