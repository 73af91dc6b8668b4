// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/SliceNames.h"

#include "volume/Error.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using tamo::volume::checkNumbering;
using tamo::volume::isBefore;

// The line of the refusal, or nothing.
std::string refusal(std::vector<std::string> const& names) {
    try {
        checkNumbering({names.begin(), names.end()});
    } catch (tamo::volume::Error const& error) {
        return error.reason();
    }
    return {};
}

bool hasBoth(std::string const& line, std::string const& a, std::string const& b) {
    return line.find(a) != std::string::npos && line.find(b) != std::string::npos;
}

TEST(SliceNames, AreOrderedAsAPersonCounts) {
    std::vector<std::string> const ordered{
        "0",      "1",      "2a10",   "2a011",  "10",      "a",       "slice",
        "slice0", "slice1", "SLICE2", "slice9", "slice10", "SLICE11", "slice100000000000000000000"};
    std::vector<std::string> shuffled = ordered;
    std::reverse(shuffled.begin(), shuffled.end());
    std::sort(shuffled.begin(), shuffled.end(), isBefore);
    EXPECT_EQ(shuffled, ordered);
}

TEST(SliceNames, OrderIsStrict) {
    for (std::string const a : {"a1", "A1", "a01", "b", "a1b", "a"}) {
        EXPECT_FALSE(isBefore(a, a));
        for (std::string const b : {"a1", "A1", "a01", "b", "a1b", "a"}) {
            EXPECT_EQ(isBefore(a, b) || isBefore(b, a), a != b) << a << " " << b;
        }
    }
}

TEST(SliceNumbers, MayBeginAnywhereAndGoInSteps) {
    EXPECT_EQ(refusal({"s7.png", "s8.png", "s9.png", "s10.png"}), "");
    EXPECT_EQ(refusal({"s-10-x.png", "s-20-x.png", "s-30-x.png"}), "");
    EXPECT_EQ(refusal({"s1.png"}), "");
    EXPECT_EQ(refusal({"s3.png", "s8.png"}), "");
    EXPECT_EQ(refusal({"a.png", "b.png", "d.png"}), "");
}

TEST(SliceNumbers, ThatAreMissingAreRefusedByTheirNeighbours) {
    std::string const line = refusal({"s_0001.png", "s_0002.png", "s_0003.png", "s_0005.png", "s_0006.png"});
    EXPECT_TRUE(hasBoth(line, "s_0003.png", "s_0005.png")) << line;
    EXPECT_TRUE(hasBoth(refusal({"s1.png", "s3.png", "s4.png"}), "s1.png", "s3.png"));
    EXPECT_TRUE(hasBoth(refusal({"s10.png", "s20.png", "s40.png", "s50.png"}), "s20.png", "s40.png"));
}

TEST(SliceNumbers, ThatDoNotFitTheStepAreRefused) {
    EXPECT_TRUE(hasBoth(refusal({"s10.png", "s20.png", "s25.png", "s35.png", "s45.png"}), "s20.png", "s25.png"));
}

TEST(SliceNumbers, ThatGoInNoStepSayNothing) {
    EXPECT_EQ(refusal({"s10.png", "s23.png", "s31.png", "s60.png"}), "");
    EXPECT_EQ(refusal({"s1000000000000000000.png", "s1000000000000000005.png", "s1000000000000000006.png"}), "");
}

TEST(SliceNumbers, ThatBeginAnewAreOfSeveralVolumes) {
    std::string const line = refusal({"t1z1.png", "t1z2.png", "t2z1.png", "t2z2.png"});
    EXPECT_TRUE(hasBoth(line, "t1z1.png", "t2z2.png")) << line;
    EXPECT_NE(line.find("several volumes"), std::string::npos) << line;
    EXPECT_NE(refusal({"z1_c0.tif", "z1_c1.tif", "z2_c0.tif", "z2_c1.tif"}), "");
    EXPECT_EQ(refusal({"z0.0.png", "z0.5.png", "z1.0.png", "z1.5.png"}), "");
    EXPECT_EQ(refusal({"1_z5.png", "2_z10.png", "3_z15.png"}), "");
    EXPECT_EQ(refusal({"a1_1.png", "a1_2.png", "a2_3.png", "a2_4.png"}), "");
}

TEST(SliceNames, ThatAreNotLikeTheOthersAreRefused) {
    EXPECT_TRUE(hasBoth(refusal({"cover.png", "s1.png", "s2.png", "s3.png"}), "s1.png", "cover.png"));
    EXPECT_EQ(refusal({"S1.png", "s2.png", "S3.png"}), "");
    EXPECT_EQ(refusal({"bottom.png", "middle.png", "top2.png"}), "");
}

TEST(SliceNumbers, ThatComeTwiceAreRefused) {
    EXPECT_TRUE(hasBoth(refusal({"s0.png", "s01.png", "s1.png", "s2.png"}), "s01.png", "s1.png"));
    EXPECT_TRUE(hasBoth(refusal({"a.tif", "a.tiff"}), "a.tif", "a.tiff"));
}

} // namespace
