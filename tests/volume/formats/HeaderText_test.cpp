// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/HeaderText.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

namespace {

using tamo::volume::Error;
using tamo::volume::HeaderLines;
using tamo::volume::HeaderText;

HeaderText headerWith(std::string const& value) {
    HeaderText header("a.txt");
    header.set("field", value);
    return header;
}

TEST(HeaderLines, EndWithEitherLineEndOrWithTheFile) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "one\ntwo\r\n\nthree\r\r\nlast");
    HeaderLines lines(folder / "a");
    for (std::string const line : {"one", "two", "", "three\r", "last"}) {
        EXPECT_EQ(lines.next(), line);
    }
    EXPECT_EQ(lines.position(), 22U);
    EXPECT_EQ(lines.next(), std::nullopt);
}

TEST(HeaderLines, TellWhereTheByteBehindThemIs) {
    TemporaryFolder const folder;
    // Lines of many lengths, across the pieces in which the file is read.
    std::string text;
    for (std::size_t i = 0; i < 400; ++i) {
        text += std::string(i, 'x') + "\n";
    }
    writeFile(folder / "a", text + "voxels");
    HeaderLines lines(folder / "a");
    std::uint64_t position = 0;
    for (std::size_t i = 0; i < 400; ++i) {
        ASSERT_EQ(lines.next()->size(), i);
        position += i + 1;
        ASSERT_EQ(lines.position(), position);
    }
}

TEST(HeaderLines, AreNotReadFromAFileWithoutAny) {
    TemporaryFolder const folder;
    HeaderLines missing(folder / "a");
    EXPECT_EQ(missing.next(), std::nullopt);
    writeFile(folder / "a", "");
    EXPECT_EQ(HeaderLines(folder / "a").next(), std::nullopt);
}

TEST(HeaderLines, AreRefusedQuicklyWithoutAnEnd) {
    TemporaryFolder const folder;
    std::string endless;
    endless.resize(40'000'000, 'x');
    writeFile(folder / "a", endless);
    HeaderLines lines(folder / "a");
    auto const start = std::chrono::steady_clock::now();
    EXPECT_THROW(static_cast<void>(lines.next()), Error);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST(HeaderText, GivesNumbersBetweenBlanksCommasAndBrackets) {
    EXPECT_EQ(headerWith("(1,-2.5) +3").numbers("field", 3), (std::vector<double>{1, -2.5, 3}));
    EXPECT_TRUE(std::isnan(headerWith("nan").numbers("field", 1)[0]));
    for (char const* const text : {"", "1", "1 2 3", "1 x", "1 2x"}) {
        EXPECT_THROW(static_cast<void>(headerWith(text).numbers("field", 2)), Error) << text;
    }
    EXPECT_THROW(static_cast<void>(headerWith("nan").finiteNumbers("field", 1)), Error);
    EXPECT_THROW(static_cast<void>(headerWith("1").numbers("other", 1)), Error);
}

TEST(HeaderText, GivesSizesWhoseProductCanBeCounted) {
    EXPECT_EQ(headerWith("3 1 1073741824").sizes("field", 3), (std::vector<std::int64_t>{3, 1, 1073741824}));
    for (char const* const text :
         {"2.5 2", "0 2", "-2 2", "1e300 2", "nan 2", "inf 2", "2147483648 1073741824", "1e18 3"}) {
        EXPECT_THROW(static_cast<void>(headerWith(text).sizes("field", 2)), Error) << text;
    }
}

TEST(HeaderText, GivesWholeNumbersWithinBounds) {
    EXPECT_EQ(headerWith("-1").whole("field", -1), -1);
    EXPECT_EQ(headerWith("7").whole("other", -1), 0);
    for (char const* const text : {"-2", "0.5", "1e30", "nan", "x", ""}) {
        EXPECT_THROW(static_cast<void>(headerWith(text).whole("field", -1)), Error) << text;
    }
}

TEST(HeaderText, IsRefusedInOneLineWhateverItHolds) {
    try {
        headerWith("a\nb\x01" + std::string(1000, 'c')).refuse("field", "a number");
    } catch (Error const& error) {
        EXPECT_EQ(error.reason().find("expected a number in the header field \"field\", found \"a?b?ccc"), 0U);
        EXPECT_LT(error.reason().size(), 200U);
    }
}

TEST(HeaderText, ComesWithoutBlanksAroundIt) {
    EXPECT_EQ(tamo::volume::trimmed(" \ta b\r "), "a b");
    EXPECT_EQ(tamo::volume::trimmed(" \t"), "");
    EXPECT_EQ(tamo::volume::wordsOf(" a\tbc  d "), (std::vector<std::string>{"a", "bc", "d"}));
    EXPECT_TRUE(tamo::volume::wordsOf(" ").empty());
}

} // namespace
