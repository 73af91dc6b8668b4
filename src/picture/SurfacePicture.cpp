// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SurfacePicture.h"

#include "Lights.h"
#include "PictureError.h"

#include <GL/gl.h>

#include <algorithm>
#include <array>
#include <string>

namespace tamo::picture {

namespace {

constexpr float kBackground = 0.94F;

constexpr std::array<float, 4> kSurface{0.98F, 0.85F, 0.76F, 1.0F};

void setScene(Camera const& camera) {
    glClearColor(kBackground, kBackground, kBackground, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(camera.projection.data());

    setLights();
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, kSurface.data());
    // The voxel spacing stretches normals; they have to come out of it with length 1.
    glEnable(GL_NORMALIZE);
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixd(camera.modelView.data());
}

void drawLists(std::vector<unsigned int> const& displayLists, std::function<void(double)> const& progress) {
    progress(0);
    double drawn = 0;
    for (unsigned int const list : displayLists) {
        glCallList(list);
        // What is only queued is not drawn yet, and the queue takes memory.
        glFinish();
        progress(++drawn / static_cast<double>(displayLists.size()));
    }
}

void requireNoError() {
    GLenum const error = glGetError();
    if (error == GL_OUT_OF_MEMORY) {
        throw PictureMemoryError("OpenGL: expected enough memory for the surface");
    }
    if (error != GL_NO_ERROR) {
        throw PictureError("OpenGL: expected to draw the surface, got error " + std::to_string(error));
    }
}

// Averages each square of `samples` x `samples` pixels of red, green, blue and an unused byte.
Picture reduce(std::vector<unsigned char> const& drawn, PictureSize size, int samples) {
    Picture picture(size);
    auto pixel = picture.pixels.begin();
    auto const drawnWidth = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(samples);
    auto const side = static_cast<std::size_t>(samples);
    auto const count = static_cast<unsigned int>(samples * samples);
    for (std::size_t y = 0; y < static_cast<std::size_t>(size.height); ++y) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(size.width); ++x) {
            for (std::size_t channel = 0; channel < 3; ++channel) {
                unsigned int sum = count / 2;
                for (std::size_t i = 0; i < side * side; ++i) {
                    sum += drawn[4 * ((y * side + i / side) * drawnWidth + x * side + i % side) + channel];
                }
                *pixel++ = static_cast<unsigned char>(sum / count);
            }
        }
    }
    return picture;
}

} // namespace

int chooseSamples(PictureSize size) {
    constexpr int kMost = 3;
    return std::min(kMost, kMaxPictureSide / std::max(size.width, size.height));
}

Picture drawSurface(std::vector<unsigned int> const& displayLists, Camera const& camera, PictureSize size, int samples,
                    std::function<void(double)> const& progress) {
    int const width = size.width * samples;
    int const height = size.height * samples;
    glViewport(0, 0, width, height);
    setScene(camera);
    drawLists(displayLists, progress);

    std::vector<unsigned char> drawn(std::size_t{4} * static_cast<std::size_t>(width) *
                                     static_cast<std::size_t>(height));
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, drawn.data());
    requireNoError();
    return reduce(drawn, size, samples);
}

} // namespace tamo::picture
