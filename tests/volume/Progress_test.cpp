// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/Progress.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::report;

TEST(VolumeProgress, IsToldTheFraction) {
    double told = 0;
    report(
        [&told](double fraction) {
            told = fraction;
            return true;
        },
        0.25);
    EXPECT_EQ(told, 0.25);
}

TEST(VolumeProgress, CancelsByReturningFalse) {
    EXPECT_THROW(report([](double) { return false; }, 0.5), tamo::volume::Cancelled);
}

TEST(VolumeProgress, MayBeEmpty) { EXPECT_NO_THROW(report({}, 0.5)); }

} // namespace
