// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "SurfacePicture.h"

#include <cstddef>
#include <string>

namespace tamo::tool {

/// Is a part of a picture, as high as the picture.
struct Panel {
    int left;
    PictureSize size;
};

/// Returns the i-th of `count` panels side by side. The picture has to be `count` pixels wide or more.
Panel panelOf(PictureSize picture, std::size_t i, std::size_t count);

/// Compiles a display list that draws a label at the upper left, over what is there; returns its name. It leaves OpenGL
/// set to draw such labels.
unsigned int compileLabel(std::string const& label, PictureSize size, int samples);

/// Puts the picture of a panel in its place. The first one makes room for all.
void placePanel(Picture const& drawn, Panel const& panel, PictureSize size, Picture& picture);

} // namespace tamo::tool
