// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/letterCase.h"

#include <gtest/gtest.h>

namespace {

TEST(LetterCase, ChangesTheLettersOfAsciiAlone) {
    EXPECT_EQ(tamo::volume::lowerCase("@AZ[`az{ 9.NII \xC3\x84"), "@az[`az{ 9.nii \xC3\x84");
    EXPECT_EQ(tamo::volume::upperCase("@AZ[`az{ 9.nii \xC3\xA4"), "@AZ[`AZ{ 9.NII \xC3\xA4");
}

} // namespace
