// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/headerGeometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using tamo::Vector3;
using tamo::volume::VolumeHeader;

TEST(HeaderGeometry, TurnsAxesOfNegativeSpacingRoundAndSaysSo) {
    VolumeHeader header;
    setSpacing(header, {2, -3, 4});
    EXPECT_EQ(header.geometry.spacing, (Vector3{2, 3, 4}));
    EXPECT_EQ(header.geometry.axes[1], (Vector3{0, -1, 0}));
    EXPECT_EQ(header.geometry.axes[2], (Vector3{0, 0, 1}));
    EXPECT_EQ(header.notes, (std::vector<std::string>{"the spacing along y is negative: the axis was turned round"}));
}

TEST(HeaderGeometry, KnowsUnitsOfLengthAndNotesOthers) {
    VolumeHeader header;
    EXPECT_EQ(millimetresOf(header, ""), 1);
    EXPECT_EQ(header.geometry.fileUnit, "");
    EXPECT_EQ(millimetresOf(header, "um"), 1e-3);
    EXPECT_EQ(header.geometry.fileUnit, "um");
    EXPECT_TRUE(header.notes.empty());
    EXPECT_EQ(millimetresOf(header, "furlong"), 1);
    EXPECT_EQ(header.notes.size(), 1U);
}

TEST(HeaderGeometry, MakesNoNegativeZeros) {
    Vector3 const product = tamo::volume::scaled({0, 2, 3}, {-1, -1, 1});
    EXPECT_EQ(product, (Vector3{0, -2, 3}));
    EXPECT_FALSE(std::signbit(product[0]));
}

} // namespace
