// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BinaryVolume.h"
#include "Camera.h"
#include "VolumeReader.h"

#include <tamo/neighborhood/Neighborhood.h>

#include <filesystem>
#include <optional>
#include <string>

namespace tamo {

struct RenderOptions {
    VolumeSource source;
    std::filesystem::path output;
    std::optional<double> min;
    std::optional<double> max;
    std::string neighborhoodName;
    Neighborhood::NHConfig neighborhood = Neighborhood::N14II;
    int step = 1;
    std::optional<Box> box;
    PictureSize size{};
    View view{};
    bool isVerbose = false;
};

/// Draws the surface of a volume's foreground into a PNG file and prints its figures.
void renderVolume(RenderOptions const& options);

} // namespace tamo
