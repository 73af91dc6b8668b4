// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/DataFiles.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::Error;
using tamo::volume::parsePattern;

std::string nameOf(std::string const& field, std::int64_t number) {
    auto const pattern = parsePattern(field, 3);
    return pattern ? nameWith(*pattern, number) : "no pattern";
}

TEST(FilePattern, TakesTheNumberInItsPlace) {
    EXPECT_EQ(nameOf("a%d.raw 1 3 1", 12), "a12.raw");
    EXPECT_EQ(nameOf("a%03d.raw 1 3 1", 12), "a012.raw");
    EXPECT_EQ(nameOf("a%03d.raw", 1234), "a1234.raw");
    EXPECT_EQ(nameOf("a%3d.raw", 12), "a 12.raw");
    EXPECT_EQ(nameOf("%04i", -7), "-007");
    EXPECT_EQ(nameOf("%4u", -7), "  -7");
    EXPECT_LT(nameOf("%0999999999999999999999d", 7).size(), 1000U);
}

TEST(FilePattern, HasOnePlaceForAWholeNumber) {
    for (char const* const field :
         {"a.raw", "a%s.raw", "a%.raw", "%", "a%3", "a%n", "%d%d", "%d%%", "%*d", "%ld", ""}) {
        EXPECT_EQ(nameOf(field, 1), "no pattern") << field;
    }
}

TEST(FilePattern, IsFollowedByNumbers) {
    auto const pattern = parsePattern("my slice %d.raw 1 120 -2", 3);
    EXPECT_EQ(pattern->name, "my slice %d.raw");
    EXPECT_EQ(pattern->numbers, (std::vector<std::int64_t>{1, 120, -2}));
    EXPECT_EQ(parsePattern("%d 7 8 9", 2)->name, "%d 7");
    EXPECT_TRUE(parsePattern("%d 9999999999999999", 3)->numbers.empty());
}

TEST(FilePattern, CountsItsNumbersInEitherDirection) {
    EXPECT_EQ(tamo::volume::patternCount(1, 120, 1), 120);
    EXPECT_EQ(tamo::volume::patternCount(0, 10, 4), 3);
    EXPECT_EQ(tamo::volume::patternCount(10, 0, -5), 3);
    EXPECT_EQ(tamo::volume::patternCount(5, 5, 1), 1);
    EXPECT_EQ(tamo::volume::patternCount(5, 4, 1), 0);
    EXPECT_EQ(tamo::volume::patternCount(4, 5, -1), 0);
    EXPECT_EQ(tamo::volume::patternCount(1, 2, 0), 0);
}

TEST(FilesOfPattern, EndAtTheFirstThatIsMissing) {
    TemporaryFolder const folder;
    writeFile(folder / "a3", "");
    writeFile(folder / "a1", "");
    auto const pattern = parsePattern("a%d", 0).value();
    EXPECT_EQ(filesOfPattern(pattern, folder / "h", 3, -2, 2),
              (std::vector<std::filesystem::path>{folder / "a3", folder / "a1"}));
    try {
        // More names than fit into memory.
        static_cast<void>(filesOfPattern(pattern, folder / "h", 1, 2, std::int64_t{1} << 50U));
        FAIL();
    } catch (Error const& error) {
        EXPECT_EQ(error.path(), folder / "a5");
    }
}

TEST(FilesOfList, AreTheOtherLinesOfTheHeader) {
    TemporaryFolder const folder;
    writeFile(folder / "h", "LIST\na b.raw\r\n\n/c/d.raw\nlast");
    tamo::volume::HeaderLines lines(folder / "h");
    static_cast<void>(lines.next());
    EXPECT_EQ(filesOfList(lines, folder / "h"),
              (std::vector<std::filesystem::path>{folder / "a b.raw", "/c/d.raw", folder / "last"}));
    EXPECT_THROW(tamo::volume::requireCount(folder / "h", 3, 2), Error);
    EXPECT_NO_THROW(tamo::volume::requireCount(folder / "h", 3, 3));
}

TEST(FilesOfList, AreNotOneFileForAll) {
    TemporaryFolder const folder;
    for (int const times : {99, 100}) {
        std::string text = "b.raw\n./b/..//a.raw\n";
        for (int i = 0; i < times; ++i) {
            text += "a.raw\n";
        }
        writeFile(folder / "h", text);
        tamo::volume::HeaderLines lines(folder / "h");
        if (times == 100) {
            EXPECT_THROW(static_cast<void>(filesOfList(lines, folder / "h")), Error);
        } else {
            EXPECT_EQ(filesOfList(lines, folder / "h").size(), 101U);
        }
    }
}

TEST(FilesOfList, AreFilesAndNoFolders) {
    TemporaryFolder const folder;
    EXPECT_THROW(tamo::volume::requireFile(folder.path(), "h"), Error);
    EXPECT_THROW(tamo::volume::requireFile(folder / std::string(5000, 'x'), "h"), Error);
    writeFile(folder / "a", "");
    EXPECT_NO_THROW(tamo::volume::requireFile(folder / "a", "h"));
}

} // namespace
