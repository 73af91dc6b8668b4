// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Panel.h"

#include "StrokeText.h"

#include <GL/gl.h>

#include <algorithm>

namespace tamo::picture {

Panel panelOf(PictureSize picture, std::size_t i, std::size_t count) {
    auto const width = static_cast<std::size_t>(picture.width);
    auto const left = static_cast<int>(width * i / count);
    return {left, {static_cast<int>(width * (i + 1) / count) - left, picture.height}};
}

DisplayList compileLabel(std::string const& label, PictureSize size, int samples) {
    constexpr double kHeightShare = 0.045;
    double const height = 2 * kHeightShare * std::min(1.0, size.aspect());
    double const width = height * size.height / size.width;
    DisplayList list;
    glNewList(list.name(), GL_COMPILE);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    glColor3f(0.15F, 0.15F, 0.15F);
    glLineWidth(static_cast<float>(std::max(1.0, height * size.height / 16) * samples));
    drawStrokeText(label, {-1 + width, 1 - 2 * height, 0}, {width, 0, 0}, {0, height, 0});
    glEndList();
    return list;
}

} // namespace tamo::picture
