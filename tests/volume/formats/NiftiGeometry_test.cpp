// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/NiftiGeometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using tamo::volume::NiftiMatrix;
using tamo::volume::NiftiSpace;
using tamo::volume::VolumeHeader;

// x to the left and y to the front, 2 and 3 long; z leans, 5 long.
constexpr NiftiMatrix kSheared{{{-2, 0, 0, 10}, {0, 3, 3, 20}, {0, 0, 4, 30}}};
constexpr NiftiMatrix kPlain{{{1, 0, 0, 7}, {0, 1, 0, 8}, {0, 0, 1, 9}}};

VolumeHeader geometryOf(NiftiSpace const& space) {
    VolumeHeader header;
    setNiftiGeometry(header, space);
    return header;
}

TEST(NiftiGeometry, TakesLengthsDirectionsAndShearFromTheSform) {
    VolumeHeader const header = geometryOf({kSheared, kPlain, {2, 3, 5}, 1});
    EXPECT_EQ(header.geometry.spacing, (tamo::Vector3{2, 3, 5}));
    EXPECT_EQ(header.geometry.axes[0], (tamo::Vector3{1, 0, 0}));
    EXPECT_EQ(header.geometry.axes[1], (tamo::Vector3{0, -1, 0}));
    EXPECT_EQ(header.geometry.axes[2], (tamo::Vector3{0, -0.6, 0.8}));
    EXPECT_EQ(header.geometry.origin, (tamo::Vector3{-10, -20, 30}));
    EXPECT_TRUE(header.notes.empty());
}

TEST(NiftiGeometry, NotesDistancesThatAreNotThoseOfTheSform) {
    for (double const off : {1.002, 0.998, 0.0, std::nan("")}) {
        VolumeHeader const header = geometryOf({kSheared, {}, {2, 3, 5 * off}, 1});
        EXPECT_EQ(header.geometry.spacing[2], 5);
        EXPECT_EQ(header.notes.size(), 1) << off;
    }
    EXPECT_TRUE(geometryOf({kSheared, {}, {2, 3, 5 * 1.0005}, 1}).notes.empty());
}

TEST(NiftiGeometry, TakesTheQformForASformThatSpansNoSpace) {
    NiftiMatrix flat = kSheared;
    flat[2][2] = flat[1][2] = 0;
    NiftiMatrix far = kSheared;
    far[0][3] = INFINITY;
    for (NiftiMatrix const& bad : {flat, far}) {
        VolumeHeader const header = geometryOf({bad, kPlain, {1, 1, 1}, 1});
        EXPECT_EQ(header.geometry.origin, (tamo::Vector3{-7, -8, 9}));
        EXPECT_TRUE(header.geometry.areAxesKnown);
        ASSERT_EQ(header.notes.size(), 1);
        EXPECT_EQ(header.notes[0], "the sform is singular or not finite and was left out");
    }
}

TEST(NiftiGeometry, KnowsTheSpacingAloneWithoutAMatrix) {
    VolumeHeader const header = geometryOf({{}, NiftiMatrix{}, {-2, 3, 4}, 1});
    EXPECT_EQ(header.geometry.spacing, (tamo::Vector3{2, 3, 4}));
    EXPECT_TRUE(header.geometry.isSpacingKnown);
    EXPECT_FALSE(header.geometry.isOriginKnown);
    EXPECT_FALSE(header.geometry.areAxesKnown);
    EXPECT_EQ(header.notes.size(), 2);
}

TEST(NiftiGeometry, AssumesASpacingOfOneForDistancesThatAreNone) {
    for (double const none : {0.0, HUGE_VAL, std::nan("")}) {
        VolumeHeader const header = geometryOf({{}, {}, {2, none, 4}, 1});
        EXPECT_EQ(header.geometry.spacing, (tamo::Vector3{1, 1, 1}));
        EXPECT_FALSE(header.geometry.isSpacingKnown);
    }
    EXPECT_FALSE(geometryOf({{}, kPlain, {1, 1, 0}, 1}).geometry.isSpacingKnown);
}

TEST(NiftiGeometry, IsInMillimetres) {
    EXPECT_EQ(geometryOf({kSheared, {}, {2, 3, 5}, 1000}).geometry.spacing, (tamo::Vector3{2000, 3000, 5000}));
    EXPECT_EQ(geometryOf({kSheared, {}, {2, 3, 5}, 1000}).geometry.origin, (tamo::Vector3{-10000, -20000, 30000}));
    EXPECT_EQ(geometryOf({{}, {}, {2, 3, 5}, 1000}).geometry.spacing, (tamo::Vector3{2000, 3000, 5000}));
}

} // namespace
