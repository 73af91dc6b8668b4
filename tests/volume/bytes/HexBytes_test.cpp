// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/HexBytes.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"

#include <gtest/gtest.h>

namespace {

// The bytes that a text stands for behind `skipped` others; "damaged" where it does not stand for as many.
std::string decoded(std::string const& text, std::size_t bytes, std::size_t skipped = 0, std::uint64_t start = 0) {
    TemporaryFolder const folder;
    writeFile(folder / "a.hex", text);
    tamo::volume::HexBytes source(folder / "a.hex", start);
    std::string result(bytes, '\0');
    bool const isWhole =
        source.skip(skipped) && source.read(reinterpret_cast<unsigned char*>(result.data()), bytes) && source.finish();
    return isWhole ? result : "damaged";
}

TEST(HexBytes, ArePairsOfDigitsOfEitherCase) {
    EXPECT_EQ(decoded("00097fFFaBCd", 6), std::string("\x00\x09\x7f\xff\xab\xcd", 6));
}

TEST(HexBytes, MayHaveBlanksBetweenAnyDigits) { EXPECT_EQ(decoded(" 61\r\n6 2\t63\n\n", 3), "abc"); }

TEST(HexBytes, BeginWhereTheyAreAskedTo) { EXPECT_EQ(decoded("head616263", 2, 1, 4), "bc"); }

TEST(HexBytes, AreDamagedByAnyOtherCharacter) {
    for (std::string const text : {"61g2", "61-62", "0x61", "6162,", "6162 6", "616", "", "61\x80 62"}) {
        EXPECT_EQ(decoded(text, 2), "damaged") << text;
    }
    EXPECT_EQ(decoded(std::string("61\0"
                                  "62",
                                  5),
                      2),
              "damaged");
}

TEST(HexBytes, MayStandAnywhereInTheReadersBuffer) {
    for (std::size_t blanks = 65530; blanks < 65540; ++blanks) {
        ASSERT_EQ(decoded(std::string(blanks, '\n') + "616263", 3), "abc") << blanks;
    }
}

} // namespace
