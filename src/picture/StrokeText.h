// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../geometry/Vector3.h"

#include <string>

namespace tamo::picture {

/// Returns the width of `text` in heights of a letter.
double strokeTextWidth(std::string const& text);

/// Draws `text` as lines of the current colour and width. It begins at `lowerLeft`; `right` and `up` lead one height of
/// a letter along the line and across it. Draws digits and the letters of names and hexadecimal numbers, A to F, I, N
/// and x; any other character is a space.
void drawStrokeText(std::string const& text, Vector3 const& lowerLeft, Vector3 const& right, Vector3 const& up);

} // namespace tamo::picture
