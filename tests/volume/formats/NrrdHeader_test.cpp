// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/NrrdHeader.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"

#include <gtest/gtest.h>

#include <chrono>

namespace {

using tamo::volume::NrrdHeader;

NrrdHeader parsed(std::string const& text) {
    TemporaryFolder const folder;
    writeFile(folder / "a.nrrd", text);
    tamo::volume::HeaderLines lines(folder / "a.nrrd");
    return readNrrdHeader(lines, folder / "a.nrrd");
}

NrrdHeader parsedFrames(std::string const& fields) {
    return parsed("NRRD0005\ndimension: 4\nsizes: 2 3 4 5\n" + fields + "\n\n");
}

bool isRefused(std::string const& text) {
    try {
        static_cast<void>(parsed(text));
    } catch (tamo::volume::Error const&) {
        return true;
    }
    return false;
}

bool isRefusedWith(std::string const& fields) {
    return isRefused("NRRD0005\ndimension: 4\nsizes: 2 3 4 5\n" + fields + "\n\n");
}

TEST(NrrdHeader, HasFieldsAndPairsOfKeysAndValues) {
    NrrdHeader const header = parsed("NRRD0001\r\n# type: no\r\nDimension: 3\r\nsizes: 2 3 4\r\nDataFile: a b\r\n"
                                     "key:=field: value\r\nunits: \"a:=b\"\r\n\r\nrest: no\r\n");
    EXPECT_EQ(header.sizes, (std::vector<std::int64_t>{2, 3, 4}));
    EXPECT_EQ(header.text.text("data file", ""), "a b");
    EXPECT_EQ(header.keys.at("key"), "field: value");
    EXPECT_EQ(header.text.text("units", ""), "\"a:=b\"");
    EXPECT_FALSE(header.text.has("type"));
    EXPECT_FALSE(header.text.has("rest"));
    EXPECT_FALSE(header.frameAxis);
}

TEST(NrrdHeader, EndsWithAnEmptyLineUnlessItsDataIsDetached) {
    EXPECT_TRUE(isRefused("NRRD0001\ndimension: 3\nsizes: 2 3 4\n"));
    EXPECT_FALSE(isRefused("NRRD0001\ndimension: 3\nsizes: 2 3 4\n\n"));
    EXPECT_FALSE(isRefused("NRRD0001\ndimension: 3\nsizes: 2 3 4\ndata file: a"));
}

// A look at the long field for each of the lines would take minutes.
TEST(NrrdHeader, IsReadInTimeOfItsLength) {
    std::string text = "NRRD0001\ndimension: 3\nsizes: 2 3 4\ndata file: " + std::string(1 << 20, 'a') + "\n";
    for (int i = 0; i < 200000; ++i) {
        text += "a: b\n";
    }
    auto const start = std::chrono::steady_clock::now();
    EXPECT_FALSE(isRefused(text));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(NrrdHeader, IsThatOfThreeAxesOfSpaceAtLeast) {
    EXPECT_TRUE(isRefused("NRRX\ndimension: 3\nsizes: 2 3 4\n\n"));
    EXPECT_TRUE(isRefused("NRRD\ndimension: 2\nsizes: 2 3\n\n"));
    EXPECT_TRUE(isRefused("NRRD\ndimension: 5\nsizes: 2 3 4 1 1\n\n"));
    EXPECT_TRUE(isRefused("NRRD\nsizes: 2 3 4\n\n"));
    for (std::string const kind :
         {"RGB-color", "vector", "3-vector", "complex", "3D-symmetric-matrix", "point", "list"}) {
        EXPECT_TRUE(isRefused("NRRD\ndimension: 3\nsizes: 3 3 4\nkinds: " + kind + " domain domain\n\n")) << kind;
        EXPECT_EQ(isRefusedWith("kinds: " + kind + " domain domain domain"), kind != "list") << kind;
    }
}

TEST(NrrdHeader, FindsTheAxisOfFramesByItsDirection) {
    std::string const three = "(1,0,0) (0,1,0) (0,0,1)";
    EXPECT_EQ(parsedFrames("space directions: none " + three).frameAxis, 0U);
    EXPECT_EQ(parsedFrames("space directions: " + three + " none").frameAxis, 3U);
    EXPECT_EQ(parsedFrames("space: RAST\nspace directions: (0,0,0,2) (1,0,0,0) (0,1,0,0) (0,0,1,0)").frameAxis, 0U);
    EXPECT_EQ(parsedFrames("space directions: none " + three).spaceAxes, (std::array<std::size_t, 3>{1, 2, 3}));
    EXPECT_TRUE(isRefusedWith("space directions: (1,0,0) none (0,1,0) (0,0,1)"));
    EXPECT_TRUE(isRefusedWith("space directions: none none (0,1,0) (0,0,1)"));
    EXPECT_TRUE(isRefusedWith("space directions: (1,0,0) (0,1,0) (0,0,1) (1,1,1)"));
}

TEST(NrrdHeader, FindsTheAxisOfFramesByItsKindOrTakesTheLast) {
    EXPECT_EQ(parsedFrames("").frameAxis, 3U);
    EXPECT_EQ(parsedFrames("kinds: domain domain domain domain").frameAxis, 3U);
    EXPECT_EQ(parsedFrames("kinds: ??? ??? ??? ???").frameAxis, 3U);
    EXPECT_EQ(parsedFrames("kinds: list space space space").frameAxis, 0U);
    EXPECT_EQ(parsedFrames("kinds: space space space time").frameAxis, 3U);
    EXPECT_EQ(parsedFrames("kinds: none domain domain domain").frameAxis, 0U);
    EXPECT_TRUE(isRefusedWith("kinds: domain time domain domain"));
    EXPECT_TRUE(isRefusedWith("kinds: list domain domain time"));
}

TEST(NrrdHeader, HasAsManyDirectionsAsAxesEachOfAllCoordinates) {
    auto const directions = parsedFrames("space directions: none (1, 2 ,3) (0,1,0) (0,0,1)").directions;
    EXPECT_TRUE(directions[0].empty());
    EXPECT_EQ(directions[1], (std::vector<double>{1, 2, 3}));
    for (std::string const text :
         {"", "(1,0,0) (0,1,0) (0,0,1)", "(1,0) (0,1) (0,0) none", "(1,0,none) (0,1,0) (0,0,1) (0,0,0)",
          "(1,0,nan) (0,1,0) (0,0,1) none", "(1,0,0) (0,1,0) (0,0,1) none none"}) {
        EXPECT_TRUE(isRefusedWith("space directions: " + text)) << text;
    }
    EXPECT_TRUE(isRefusedWith("space dimension: 2"));
}

TEST(NrrdHeader, QuotesUnits) {
    EXPECT_EQ(tamo::volume::quotedTexts("\"mm\" \"\" \" um\""), (std::vector<std::string>{"mm", "", "um"}));
    EXPECT_TRUE(tamo::volume::quotedTexts("mm \"").empty());
}

} // namespace
