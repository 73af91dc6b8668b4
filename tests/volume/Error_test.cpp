// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/Error.h"

#include <gtest/gtest.h>

namespace {

TEST(VolumeError, IsOneLineOfTheFileAndTheReason) {
    tamo::volume::Error const error("scans/a.nii", "expected a volume, found none");
    EXPECT_STREQ(error.what(), "scans/a.nii: expected a volume, found none");
    EXPECT_EQ(error.path(), "scans/a.nii");
    EXPECT_EQ(error.reason(), "expected a volume, found none");
}

} // namespace
