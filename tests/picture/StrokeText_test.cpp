// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/OffscreenContext.h"
#include "picture/StrokeText.h"

#include "support/opengl/ReadPixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using tamo::picture::drawStrokeText;
using tamo::picture::strokeTextWidth;
using tamo::test::Pixel;

constexpr int kSide = 60;

class StrokeText : public testing::Test {
  protected:
    // Draws a text from the lower left corner, its letters as high as half the picture.
    [[nodiscard]] static std::vector<Pixel> draw(std::string const& text) {
        glClear(GL_COLOR_BUFFER_BIT);
        drawStrokeText(text, {-0.95, -0.95, 0}, {1, 0, 0}, {0, 1, 0});
        return tamo::test::readPixels(kSide, kSide);
    }

    tamo::picture::OffscreenContext _context{kSide, kSide};
};

TEST_F(StrokeText, DrawsEveryLetterOfNamesAndNumbersDifferently) {
    std::string const letters = "0123456789ABCDEFINx";
    std::set<std::vector<Pixel>> pictures{draw(" ")};
    for (char const letter : letters) {
        EXPECT_TRUE(pictures.insert(draw(std::string(1, letter))).second) << letter;
    }
}

TEST_F(StrokeText, TakesOtherCharactersForSpaces) {
    EXPECT_EQ(draw(" 1"), draw("?1"));
    EXPECT_EQ(draw("?"), std::vector<Pixel>(kSide * kSide, tamo::test::kBlack));
}

TEST_F(StrokeText, StaysWithinItsWidthAndHeight) {
    std::vector<Pixel> const pixels = draw("8");
    // The letter ends at -0.95 + its width and -0.95 + 1 of [-1, 1].
    auto const right = static_cast<int>((0.05 + strokeTextWidth("8")) * kSide / 2) + 1;
    auto const top = static_cast<int>(1.05 * kSide / 2) + 1;
    int inside = 0;
    for (int i = 0; i < kSide * kSide; ++i) {
        if (pixels[static_cast<std::size_t>(i)] != tamo::test::kBlack) {
            EXPECT_LE(i % kSide, right);
            EXPECT_LE(i / kSide, top);
            ++inside;
        }
    }
    EXPECT_GT(inside, 40);
}

TEST(StrokeTextWidth, GrowsByOneHeightPerLetter) {
    EXPECT_DOUBLE_EQ(strokeTextWidth("N"), 4.0 / 6);
    EXPECT_DOUBLE_EQ(strokeTextWidth("N14II"), 4 + 4.0 / 6);
}

} // namespace
