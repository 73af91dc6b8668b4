// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomText.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::exactNumber;
using tamo::volume::shownNumber;
using tamo::volume::shownText;

TEST(DicomText, IsOneLineOfUtf8) {
    EXPECT_EQ(shownText("T1\naxial\x1B", ""), "T1?axial?");
    EXPECT_EQ(shownText("Sch\xE4"
                        "del",
                        "ISO_IR 100"),
              "Sch\xC3\xA4"
              "del");
    EXPECT_EQ(shownText("Sch\xC3\xA4"
                        "del",
                        "ISO_IR 192"),
              "Sch\xC3\xA4"
              "del");
    EXPECT_EQ(shownText("\xB1\xE8", "ISO 2022 IR 149"), "??");
}

TEST(DicomText, HasAtMost64Characters) {
    EXPECT_EQ(shownText(std::string(100, 'a'), "").size(), 64U);
    std::string umlauts;
    for (int i = 0; i < 100; ++i) {
        umlauts += "\xC3\xA4";
    }
    EXPECT_EQ(shownText(umlauts, "ISO_IR 192").size(), 128U);
}

TEST(DicomText, ShowsNumbersWithoutTrailingZeros) {
    EXPECT_EQ(shownNumber(1.25), "1.25");
    EXPECT_EQ(shownNumber(3), "3");
}

TEST(DicomText, TellsNumbersApart) {
    EXPECT_EQ(exactNumber(2), "2");
    EXPECT_EQ(exactNumber(0.1), "0.1");
    EXPECT_NE(exactNumber(1e-9), exactNumber(2e-9));
    EXPECT_NE(exactNumber(1000000.25), exactNumber(1000000.5));
}

} // namespace
