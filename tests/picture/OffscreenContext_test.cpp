// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/OffscreenContext.h"
#include "picture/PictureError.h"

#include "support/opengl/ReadPixels.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

namespace {

using tamo::picture::OffscreenContext;

TEST(OffscreenContext, IsCurrentWithAPictureOfItsSize) {
    OffscreenContext const context(30, 20);
    std::array<GLint, 4> viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    EXPECT_EQ(viewport, (std::array<GLint, 4>{0, 0, 30, 20}));
    glClearColor(1, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    EXPECT_EQ(tamo::test::readPixels(30, 20), std::vector<tamo::test::Pixel>(600, {255, 0, 0}));
}

TEST(OffscreenContext, HasTheDepthAndTheFixedLightingOfOldOpenGl) {
    OffscreenContext const context(8, 8);
    GLint bits = 0;
    glGetIntegerv(GL_DEPTH_BITS, &bits);
    EXPECT_GE(bits, 24);
    glEnable(GL_LIGHTING);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST(OffscreenContext, CanBeMadeAgainAndAgain) {
    for (int side = 8; side < 40; side += 8) {
        OffscreenContext const context(side, side);
        EXPECT_NE(eglGetCurrentContext(), EGL_NO_CONTEXT);
    }
    EXPECT_EQ(eglGetCurrentContext(), EGL_NO_CONTEXT);
}

TEST(OffscreenContext, RefusesASizeThatIsNoneAndGoesOnWorking) {
    try {
        OffscreenContext const context(-1, 5);
        FAIL() << "made it";
    } catch (tamo::picture::PictureError const& error) {
        EXPECT_NE(std::string(error.what()).find("expected a picture of -1 x 5 of EGL"), std::string::npos);
    }
    EXPECT_NO_THROW(OffscreenContext(8, 8));
}

} // namespace
