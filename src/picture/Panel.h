// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "DisplayList.h"
#include "PictureSize.h"

#include <cstddef>
#include <string>

namespace tamo::picture {

/// A part of a picture, as high as the picture.
struct Panel {
    int left;
    PictureSize size;
};

/// Returns the i-th of `count` panels side by side. The picture has to be `count` pixels wide or more.
Panel panelOf(PictureSize picture, std::size_t i, std::size_t count);

/// Compiles a display list that draws a label at the upper left of a picture, over what is there, with `samples` along
/// each side of a pixel. It leaves OpenGL set to draw such labels.
DisplayList compileLabel(std::string const& label, PictureSize size, int samples);

} // namespace tamo::picture
