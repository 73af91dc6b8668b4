// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/ImageJText.h"

#include "volume/Error.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::Error;
using tamo::volume::parseImageJText;

TEST(ImageJText, IsReadLineByLine) {
    auto const text = parseImageJText("ImageJ=1.53t\nimages=24\nchannels=2\nslices=4\nframes=3\nhyperstack=true\n"
                                      "unit=\\u00B5m\nspacing=0.5\nloop=false\n",
                                      "a");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->images, 24);
    EXPECT_EQ(text->channels, 2);
    EXPECT_EQ(text->slices, 4);
    EXPECT_EQ(text->frames, 3);
    EXPECT_EQ(text->spacing, 0.5);
    EXPECT_EQ(text->unit, "\\u00B5m");
}

TEST(ImageJText, LeavesOutWhatIsOne) {
    auto const picture = parseImageJText("ImageJ=1.53t\r\nunit=cm\r\n", "a");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->images, 1);
    EXPECT_EQ(picture->slices, 1);
    EXPECT_EQ(picture->unit, "cm");
    EXPECT_FALSE(picture->spacing);
    auto const colours = parseImageJText("ImageJ=1.53t\nimages=2\nchannels=2\n", "a");
    EXPECT_EQ(colours->slices, 1);
}

TEST(ImageJText, HasSlicesWhereItCountsImagesOnly) {
    EXPECT_EQ(parseImageJText("ImageJ=1.30\nimages=7\n", "a")->slices, 7);
}

TEST(ImageJText, IsNoOtherText) {
    EXPECT_FALSE(parseImageJText("", "a"));
    EXPECT_FALSE(parseImageJText("images=3\nImageJ=1.53\n", "a"));
}

TEST(ImageJText, ThatContradictsItselfIsRefused) {
    for (char const* const lines :
         {"images=0", "images=-3", "images=x", "images=", "images=99999999999", "images=6\nchannels=4\nslices=1",
          "images=6\nslices=5", "channels=2", "images=2147483647\nslices=2147483647\nframes=2147483647"}) {
        EXPECT_THROW(parseImageJText(std::string("ImageJ=1.53\n") + lines, "a"), Error) << lines;
    }
}

TEST(ImageJText, SpacingThatIsNoneIsNotKnown) {
    for (char const* const spacing : {"0", "-1", "nan", "x"}) {
        EXPECT_FALSE(parseImageJText(std::string("ImageJ=1.53\nspacing=") + spacing, "a")->spacing) << spacing;
    }
}

} // namespace
