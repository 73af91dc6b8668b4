// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/Lights.h"
#include "picture/OffscreenContext.h"

#include "support/opengl/ReadPixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using tamo::test::Pixel;

// Draws a white matt square over the whole picture that faces the given direction, and returns its colour.
Pixel shadeOf(float x, float y, float z) {
    std::array<float, 4> const white{1, 1, 1, 1};
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, white.data());
    glNormal3f(x, y, z);
    glRectf(-1, -1, 1, 1);
    return tamo::test::readPixels(8, 8)[36];
}

class Lights : public testing::Test {
  protected:
    Lights() { tamo::picture::setLights(); }

    tamo::picture::OffscreenContext _context{8, 8};
};

TEST_F(Lights, ReachEverySideThatIsSeenAndBurnNone) {
    for (int i = 0; i < 360; i += 15) {
        for (int j = 0; j <= 90; j += 15) {
            float const turn = static_cast<float>(i) * 0.0174533F;
            float const tilt = static_cast<float>(j) * 0.0174533F;
            Pixel const shade =
                shadeOf(std::cos(turn) * std::cos(tilt), std::sin(turn) * std::cos(tilt), std::sin(tilt));
            EXPECT_GE(*std::min_element(shade.begin(), shade.end()), 60) << i << ", " << j;
            EXPECT_LT(*std::max_element(shade.begin(), shade.end()), 255) << i << ", " << j;
        }
    }
}

TEST_F(Lights, ComeFromTheUpperLeftAboveAll) {
    Pixel const upperLeft = shadeOf(-0.6F, 0.6F, 0.53F);
    Pixel const lowerRight = shadeOf(0.6F, -0.6F, 0.53F);
    Pixel const lowerLeft = shadeOf(-0.6F, -0.6F, 0.53F);
    EXPECT_GT(upperLeft[0], lowerRight[0] + 20);
    EXPECT_GT(lowerRight[0], lowerLeft[0]);
}

TEST_F(Lights, StandStillWhateverTheMatrixIs) {
    Pixel const before = shadeOf(-0.6F, 0.6F, 0.53F);
    glRotatef(90, 0, 1, 0);
    tamo::picture::setLights();
    std::array<float, 16> matrix{};
    glGetFloatv(GL_MODELVIEW_MATRIX, matrix.data());
    EXPECT_NEAR(matrix[0], 0, 1e-6);
    glLoadIdentity();
    EXPECT_EQ(shadeOf(-0.6F, 0.6F, 0.53F), before);
}

} // namespace
