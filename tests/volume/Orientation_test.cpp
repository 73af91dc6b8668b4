// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/Orientation.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::orientationLetters;
using tamo::volume::parseOrientation;

TEST(Orientation, IsSpeltAsItIsRead) {
    int count = 0;
    std::string const letters = "RLAPIS";
    for (char const a : letters) {
        for (char const b : letters) {
            for (char const c : letters) {
                std::string const name{a, b, c};
                if (auto const axes = parseOrientation(name)) {
                    EXPECT_EQ(orientationLetters(*axes), name);
                    ++count;
                }
            }
        }
    }
    EXPECT_EQ(count, 48);
}

TEST(Orientation, IsLpsAlongTheAxesOfSpace) {
    auto const axes = parseOrientation("lps");
    ASSERT_TRUE(axes);
    EXPECT_EQ((*axes)[0], (tamo::Vector3{1, 0, 0}));
    EXPECT_EQ((*axes)[1], (tamo::Vector3{0, 1, 0}));
    EXPECT_EQ((*axes)[2], (tamo::Vector3{0, 0, 1}));
}

TEST(Orientation, NeedsALetterOfEachPair) {
    for (char const* const letters : {"", "LP", "LPSA", "LRS", "LLS", "xyz", "L S"}) {
        EXPECT_FALSE(parseOrientation(letters)) << letters;
    }
}

TEST(Orientation, OfObliqueAxesTakesEachSideOnce) {
    EXPECT_EQ(orientationLetters({{{0.8, -0.6, 0}, {0.75, 0.66, 0}, {0, 0.1, 0.99}}}), "LPS");
    EXPECT_EQ(orientationLetters({{{-0.1, 0.99, 0}, {-0.99, -0.1, 0}, {0, 0, -1}}}), "PRI");
}

} // namespace
