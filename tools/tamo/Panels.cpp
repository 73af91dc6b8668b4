// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Panels.h"

#include "StrokeText.h"

#include <GL/gl.h>

#include <algorithm>

namespace tamo::tool {

Panel panelOf(PictureSize picture, std::size_t i, std::size_t count) {
    auto const width = static_cast<std::size_t>(picture.width);
    auto const left = static_cast<int>(width * i / count);
    return {left, {static_cast<int>(width * (i + 1) / count) - left, picture.height}};
}

unsigned int compileLabel(std::string const& label, PictureSize size, int samples) {
    constexpr double kHeightShare = 0.045;
    double const height = 2 * kHeightShare * std::min(1.0, static_cast<double>(size.width) / size.height);
    double const width = height * size.height / size.width;
    GLuint const list = glGenLists(1);
    glNewList(list, GL_COMPILE);
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

void placePanel(Picture const& drawn, Panel const& panel, PictureSize size, Picture& picture) {
    constexpr std::size_t kChannels = 3;
    auto const rowBytes = kChannels * static_cast<std::size_t>(size.width);
    auto const panelBytes = kChannels * static_cast<std::size_t>(panel.size.width);
    picture.size = size;
    picture.pixels.resize(rowBytes * static_cast<std::size_t>(size.height));
    for (std::size_t y = 0; y < static_cast<std::size_t>(size.height); ++y) {
        auto const source = drawn.pixels.begin() + static_cast<std::ptrdiff_t>(y * panelBytes);
        auto const target = y * rowBytes + kChannels * static_cast<std::size_t>(panel.left);
        std::copy_n(source, panelBytes, picture.pixels.begin() + static_cast<std::ptrdiff_t>(target));
    }
}

} // namespace tamo::tool
