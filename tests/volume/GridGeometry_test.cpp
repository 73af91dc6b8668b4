// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/GridGeometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using tamo::volume::GridGeometry;
using tamo::volume::millimetresPer;

TEST(GridGeometry, TakesLengthsAndDirectionsFromTheSameSteps) {
    GridGeometry geometry;
    // The third step leans, as that of a tilted gantry does.
    ASSERT_TRUE(geometry.setSteps({{{0, 2, 0}, {-3, 0, 0}, {0, 3, 4}}}));
    EXPECT_EQ(geometry.spacing, (tamo::Vector3{2, 3, 5}));
    EXPECT_EQ(geometry.axes[2], (tamo::Vector3{0, 0.6, 0.8}));
    geometry.origin = {10, 20, 30};
    tamo::Vector3 const position = geometry.position({1, 1, 2});
    EXPECT_DOUBLE_EQ(position[0], 7);
    EXPECT_DOUBLE_EQ(position[1], 28);
    EXPECT_DOUBLE_EQ(position[2], 38);
}

TEST(GridGeometry, RefusesStepsThatSpanNoSpace) {
    double const nan = std::nan("");
    for (tamo::Vector3 const& third : {tamo::Vector3{0, 0, 0}, {1, 1, 0}, {nan, 0, 1}, {INFINITY, 0, 0}}) {
        GridGeometry geometry;
        EXPECT_FALSE(geometry.setSteps({{{1, 0, 0}, {0, 1, 0}, third}}));
        EXPECT_FALSE(geometry.areAxesKnown);
        EXPECT_EQ(geometry.axes[2], (tamo::Vector3{0, 0, 1}));
    }
}

TEST(GridGeometry, KnowsTheUsualUnitsOfLength) {
    for (char const* const micron : {"um", "\xC2\xB5m", "\xCE\xBCm", "micron", "Microns", "\\u00B5m"}) {
        EXPECT_EQ(millimetresPer(micron), 1e-3) << micron;
    }
    EXPECT_EQ(millimetresPer("mm"), 1);
    EXPECT_EQ(millimetresPer("inch"), 25.4);
    EXPECT_EQ(millimetresPer("pixel"), 0);
    EXPECT_EQ(millimetresPer(""), 0);
}

} // namespace
