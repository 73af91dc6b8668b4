// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Lights.h"

#include <GL/gl.h>

#include <array>

namespace tamo::picture {

namespace {

struct Light {
    std::array<float, 4> direction;
    std::array<float, 4> colour;
};

// Directions are relative to the viewer, so that every view is lit alike. Together they stay below 1 on every side: no
// part of the surface burns out, and the ambient light keeps the sides that neither reaches from turning black.
constexpr Light kKeyLight{{-0.50F, 0.75F, 0.80F, 0.0F}, {0.56F, 0.55F, 0.53F, 1.0F}};
constexpr Light kFillLight{{0.50F, -0.60F, 1.00F, 0.0F}, {0.28F, 0.29F, 0.31F, 1.0F}};
constexpr std::array<float, 4> kAmbient{0.28F, 0.28F, 0.29F, 1.0F};

void setLight(GLenum name, Light const& light) {
    constexpr std::array<float, 4> kBlack{0, 0, 0, 1};
    glLightfv(name, GL_POSITION, light.direction.data());
    glLightfv(name, GL_DIFFUSE, light.colour.data());
    glLightfv(name, GL_SPECULAR, kBlack.data());
    glLightfv(name, GL_AMBIENT, kBlack.data());
    glEnable(name);
}

} // namespace

void setLights() {
    // OpenGL turns a light's direction by the matrix of the moment.
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    setLight(GL_LIGHT0, kKeyLight);
    setLight(GL_LIGHT1, kFillLight);
    glPopMatrix();
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kAmbient.data());
    glEnable(GL_LIGHTING);
}

} // namespace tamo::picture
