// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/VtkText.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::VtkText;

TEST(VtkText, ReadsWordsAndTheRestsOfLines) {
    TemporaryFolder const folder;
    writeFile(folder / "a", " One\ttwo three\r\n\nfour");
    VtkText text(folder / "a");
    EXPECT_EQ(text.keyword(), "one");
    EXPECT_EQ(text.word(), "two");
    EXPECT_EQ(text.position(), 8);
    EXPECT_EQ(text.line(), " three");
    EXPECT_EQ(text.line(), "");
    EXPECT_EQ(text.position(), 17);
    EXPECT_EQ(text.word(), "four");
    EXPECT_EQ(text.word(), "");
    EXPECT_EQ(text.line(), "");
}

TEST(VtkText, StepsOverBytesAndWordsWhereverItsBufferEnds) {
    TemporaryFolder const folder;
    for (std::size_t length = 65530; length < 65540; ++length) {
        writeFile(folder / "a", "x " + std::string(length, 'y') + " z end");
        VtkText words(folder / "a");
        ASSERT_TRUE(words.skipWords(3));
        EXPECT_EQ(words.word(), "end");
        EXPECT_FALSE(words.skipWords(1));
        VtkText bytes(folder / "a");
        EXPECT_EQ(bytes.word(), "x");
        ASSERT_TRUE(bytes.skipBytes(length + 4));
        EXPECT_EQ(bytes.position(), length + 5);
        EXPECT_EQ(bytes.word(), "end");
        EXPECT_FALSE(bytes.skipBytes(1));
        EXPECT_FALSE(bytes.skipBytes(UINT64_MAX));
    }
}

TEST(VtkText, ReadsNumbersAsTheyShouldBe) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "12 -3 +1.5e2 .25");
    VtkText text(folder / "a");
    EXPECT_EQ(text.whole(0), 12);
    EXPECT_EQ(text.whole(-3), -3);
    EXPECT_EQ(text.number(), 150);
    EXPECT_EQ(text.number(), 0.25);
    for (char const* const word : {"", "x", "1x", "nan", "inf", "1e999", "+", "0x1"}) {
        writeFile(folder / "a", word);
        EXPECT_THROW(static_cast<void>(VtkText(folder / "a").number()), tamo::volume::Error) << word;
        EXPECT_THROW(static_cast<void>(VtkText(folder / "a").whole(-9)), tamo::volume::Error) << word;
    }
    writeFile(folder / "a", "-10");
    EXPECT_THROW(static_cast<void>(VtkText(folder / "a").whole(-9)), tamo::volume::Error);
}

TEST(VtkText, QuotesInOneShortLineWhateverItFinds) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "");
    try {
        VtkText(folder / "a").refuse("a number", "a\nb" + std::string(1000, 'c'));
        FAIL();
    } catch (tamo::volume::Error const& error) {
        EXPECT_EQ(error.reason(), "expected a number, found \"a?b" + std::string(57, 'c') + "...\"");
    }
}

} // namespace
