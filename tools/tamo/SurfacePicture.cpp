// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SurfacePicture.h"

#include "terminal/Progress.h"
#include "terminal/UserError.h"

#include <GL/gl.h>

#include <algorithm>

namespace tamo::tool {

namespace {

constexpr float kBackground = 0.94F;

struct Light {
    std::array<float, 4> direction;
    std::array<float, 4> colour;
};

// Directions are relative to the viewer, so that every view is lit alike. Together they stay below 1 on every side: no
// part of the surface burns out, and the ambient light keeps the sides that neither reaches from turning black.
constexpr Light kKeyLight{{-0.50F, 0.75F, 0.80F, 0.0F}, {0.56F, 0.55F, 0.53F, 1.0F}};
constexpr Light kFillLight{{0.50F, -0.60F, 1.00F, 0.0F}, {0.28F, 0.29F, 0.31F, 1.0F}};
constexpr std::array<float, 4> kAmbient{0.28F, 0.28F, 0.29F, 1.0F};
constexpr std::array<float, 4> kSurface{0.98F, 0.85F, 0.76F, 1.0F};

void setLight(GLenum name, Light const& light) {
    constexpr std::array<float, 4> kBlack{0, 0, 0, 1};
    glLightfv(name, GL_POSITION, light.direction.data());
    glLightfv(name, GL_DIFFUSE, light.colour.data());
    glLightfv(name, GL_SPECULAR, kBlack.data());
    glLightfv(name, GL_AMBIENT, kBlack.data());
    glEnable(name);
}

void setScene(Camera const& camera) {
    glClearColor(kBackground, kBackground, kBackground, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(camera.projection.data());

    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    setLight(GL_LIGHT0, kKeyLight);
    setLight(GL_LIGHT1, kFillLight);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kAmbient.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, kSurface.data());
    glEnable(GL_LIGHTING);
    // The voxel spacing stretches normals; they have to come out of it with length 1.
    glEnable(GL_NORMALIZE);
    glLoadMatrixd(camera.modelView.data());
}

void drawLists(std::vector<unsigned int> const& displayLists) {
    Progress progress("drawing");
    progress.update(0);
    double drawn = 0;
    for (unsigned int const list : displayLists) {
        glCallList(list);
        // What is only queued is not drawn yet, and the queue takes memory.
        glFinish();
        progress.update(++drawn / static_cast<double>(displayLists.size()));
    }
}

// Averages each square of `samples` x `samples` pixels of red, green, blue and a byte that is not used.
Picture reduce(std::vector<unsigned char> const& drawn, PictureSize size, int samples) {
    Picture picture{size, {}};
    picture.pixels.reserve(std::size_t{3} * static_cast<std::size_t>(size.width) *
                           static_cast<std::size_t>(size.height));
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
                picture.pixels.push_back(static_cast<unsigned char>(sum / count));
            }
        }
    }
    return picture;
}

} // namespace

int chooseSamples(PictureSize size) {
    // What Mesa's software rasteriser can draw, and every hardware of the last ten years.
    constexpr int kMaxSide = 16384;
    constexpr int kMost = 3;
    int const samples = std::min(kMost, kMaxSide / std::max(size.width, size.height));
    if (samples == 0) {
        throw UserError("--size " + std::to_string(size.width) + "x" + std::to_string(size.height) +
                        ": expected at most " + std::to_string(kMaxSide) + " pixels a side");
    }
    return samples;
}

Picture drawSurface(std::vector<unsigned int> const& displayLists, Camera const& camera, PictureSize size,
                    int samples) {
    int const width = size.width * samples;
    int const height = size.height * samples;
    glViewport(0, 0, width, height);
    setScene(camera);
    drawLists(displayLists);

    std::vector<unsigned char> drawn(std::size_t{4} * static_cast<std::size_t>(width) *
                                     static_cast<std::size_t>(height));
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, drawn.data());
    GLenum const error = glGetError();
    if (error != GL_NO_ERROR) {
        throw UserError(error == GL_OUT_OF_MEMORY
                            ? "OpenGL: expected enough memory for the surface; try a larger --step"
                            : "OpenGL: expected to draw the surface, got error " + std::to_string(error));
    }
    return reduce(drawn, size, samples);
}

} // namespace tamo::tool
