// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/OffscreenContext.h"
#include "picture/Panel.h"

#include "support/opengl/ReadPixels.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using tamo::picture::Panel;
using tamo::picture::panelOf;

TEST(Panel, SeveralFillThePictureWithoutGapsInNearlyEqualWidths) {
    for (int width = 7; width < 40; ++width) {
        for (std::size_t count = 1; count <= 7; ++count) {
            int left = 0;
            for (std::size_t i = 0; i < count; ++i) {
                Panel const panel = panelOf({width, 5}, i, count);
                EXPECT_EQ(panel.left, left);
                EXPECT_EQ(panel.size.height, 5);
                EXPECT_NEAR(panel.size.width, width / static_cast<double>(count), 1);
                EXPECT_GE(panel.size.width, 1);
                left += panel.size.width;
            }
            EXPECT_EQ(left, width);
        }
    }
}

TEST(Panel, LabelStandsAtTheUpperLeftOverWhatIsThere) {
    constexpr int kSide = 200;
    tamo::picture::OffscreenContext const context(kSide, kSide);
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_LIGHTING);
    glEnable(GL_DEPTH_TEST);
    glTranslatef(5, 5, 5);
    glCallList(tamo::picture::compileLabel("N14II", {kSide, kSide}, /*samples=*/1).name());
    auto const pixels = tamo::test::readPixels(kSide, kSide);
    int dark = 0;
    for (int i = 0; i < kSide * kSide; ++i) {
        if (pixels[static_cast<std::size_t>(i)][0] < 128) {
            ++dark;
            EXPECT_LT(i % kSide, kSide / 3);
            EXPECT_GT(i / kSide, kSide * 3 / 4);
        }
    }
    EXPECT_GT(dark, 50);
}

} // namespace
