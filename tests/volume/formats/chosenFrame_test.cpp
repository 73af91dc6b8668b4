// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/chosenFrame.h"

#include "volume/Error.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tamo::volume::chosenFrame;
using tamo::volume::VolumeSource;

std::string refusal(VolumeSource const& source, std::int64_t frames) {
    try {
        return "frame " + std::to_string(chosenFrame(source, frames));
    } catch (tamo::volume::Error const& error) {
        return error.what();
    }
}

TEST(ChosenFrame, HasToBeNamedWhereThereAreSeveral) {
    VolumeSource source;
    source.path = "a.nii";
    EXPECT_EQ(chosenFrame(source, 1), 0);
    EXPECT_EQ(refusal(source, 12), "a.nii: expected one volume, found 12 frames; choose one with --frame 0 to 11");
    source.frame = 11;
    EXPECT_EQ(chosenFrame(source, 12), 11);
}

TEST(ChosenFrame, IsOneThatTheFileHas) {
    VolumeSource source;
    source.path = "a.nii";
    source.frame = 12;
    EXPECT_EQ(refusal(source, 12), "a.nii: expected the frame 12, found 12 frames; choose one with --frame 0 to 11");
    source.frame = -1;
    EXPECT_NE(refusal(source, 12), "frame -1");
    source.frame = 1;
    EXPECT_EQ(refusal(source, 1), "a.nii: expected the frame 1, found one frame; leave out --frame");
    source.frame = 0;
    EXPECT_EQ(chosenFrame(source, 1), 0);
}

} // namespace
