// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/GLConnAccess.h"
#include "support/TextCapture.h"
#include "support/oracle/PlainAdjacency.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <map>

namespace {

using namespace tamo::test;

std::vector<unsigned int> tableOf(unsigned int config) {
    GLConn conn(static_cast<Neighborhood::NHConfig>(config));
    return GLConnAccess::caseLut(conn);
}

std::string printed(GLConn& conn, int i) {
    TextCapture const capture(std::cout);
    GLConnAccess::printCaseLut(conn, i);
    return capture.text();
}

TEST(GLConnCaseTable, EveryWordFollowsFromTheShapeOfTheCorners) {
    std::vector<unsigned int> const table = tableOf(Neighborhood::N6);
    ASSERT_EQ(table.size(), 256U);
    for (unsigned int corners = 0; corners < 256; ++corners) {
        EXPECT_EQ(table[corners], plainCaseWord(corners)) << corners;
    }
}

TEST(GLConnCaseTable, IsTheSameUnderEverySystem) {
    for (unsigned int const config : {0U, 3U, 4U, 5U, 6U, 7U, 9U, 16U, 17U}) {
        EXPECT_EQ(tableOf(config), tableOf(Neighborhood::N6)) << config;
    }
}

TEST(GLConnCaseTable, CountsOfCodes) {
    std::map<unsigned int, int> codes;
    int inverted = 0;
    for (unsigned int const word : tableOf(Neighborhood::N26)) {
        EXPECT_EQ(word & ~0x8ffU, 0U);
        ++codes[word & 0xff];
        inverted += (word & 0x800) != 0 ? 1 : 0;
    }
    std::map<unsigned int, int> const expected = {{0, 40},  {1, 24},  {2, 24},  {4, 8},   {8, 16},
                                                  {16, 48}, {32, 48}, {64, 24}, {128, 24}};
    EXPECT_EQ(codes, expected);
    EXPECT_EQ(inverted, 108);
}

TEST(GLConnCaseTable, ListsTheShapesWithoutACase) {
    std::vector<unsigned int> const table = tableOf(Neighborhood::N14I);
    std::vector<unsigned int> without;
    for (unsigned int corners = 0; corners < 256; ++corners) {
        if (table[corners] == 0) {
            without.push_back(corners);
        }
    }
    std::vector<unsigned int> const expected = {0x00, 0x0f, 0x16, 0x17, 0x1e, 0x2b, 0x33, 0x36, 0x3c, 0x4d,
                                                0x55, 0x56, 0x5a, 0x66, 0x68, 0x69, 0x6a, 0x6c, 0x71, 0x78,
                                                0x87, 0x8e, 0x93, 0x95, 0x96, 0x97, 0x99, 0xa5, 0xa9, 0xaa,
                                                0xb2, 0xc3, 0xc9, 0xcc, 0xd4, 0xe1, 0xe8, 0xe9, 0xf0, 0xff};
    EXPECT_EQ(without, expected);
}

TEST(GLConnCaseTable, WordsOfSingleShapes) {
    std::vector<unsigned int> const table = tableOf(Neighborhood::N6);
    std::map<unsigned int, unsigned int> const expected = {
        {0x01, 0x008}, {0xfe, 0x808}, {0x03, 0x001}, {0xfc, 0x801}, {0x06, 0x002}, {0x81, 0x004}, {0x7e, 0x804},
        {0x07, 0x010}, {0xf8, 0x810}, {0x29, 0x080}, {0x6b, 0x080}, {0x94, 0x880}, {0x1b, 0x840}, {0xe4, 0x040}};
    for (auto const& [corners, word] : expected) {
        EXPECT_EQ(table[corners], word) << corners;
    }
}

TEST(GLConnCaseTable, LaterMemberOfAComplementaryPairWins) {
    std::vector<unsigned int> const table = tableOf(Neighborhood::N6);
    std::vector<unsigned int> const paths = GLConnAccess::shapes(64);
    ASSERT_EQ(paths.size(), 24U);
    for (std::size_t i = 0; i < paths.size(); i += 2) {
        EXPECT_EQ(paths[i] + paths[i + 1], 255U);
        EXPECT_EQ(table[paths[i]], 0x840U) << paths[i];
        EXPECT_EQ(table[paths[i + 1]], 0x040U) << paths[i + 1];
    }
}

TEST(GLConnCaseTable, ShapeListsAreCompleteAndInTheirOrder) {
    EXPECT_EQ(GLConnAccess::shapes(16),
              (std::vector<unsigned int>{0x07, 0x0b, 0x0d, 0x0e, 0x70, 0xd0, 0xb0, 0xe0, 0xa8, 0x8a, 0xa2, 0x2a,
                                         0x54, 0x51, 0x15, 0x45, 0xc4, 0x4c, 0xc8, 0x8c, 0x31, 0x13, 0x23, 0x32}));
    EXPECT_EQ(GLConnAccess::shapes(32),
              (std::vector<unsigned int>{0x19, 0x91, 0x98, 0x89, 0x64, 0x26, 0x62, 0x46, 0x34, 0x38, 0x1c, 0x2c,
                                         0x43, 0x83, 0xc2, 0xc1, 0x1a, 0x4a, 0x52, 0x58, 0x25, 0x85, 0xa4, 0xa1}));
    EXPECT_EQ(GLConnAccess::shapes(64),
              (std::vector<unsigned int>{0x1b, 0xe4, 0x1d, 0xe2, 0x27, 0xd8, 0x2e, 0xd1, 0x35, 0xca, 0x3a, 0xc5,
                                         0x47, 0xb8, 0x4e, 0xb1, 0x53, 0xac, 0x5c, 0xa3, 0x72, 0x8d, 0x74, 0x8b}));
    EXPECT_EQ(GLConnAccess::shapes(128),
              (std::vector<unsigned int>{0x29, 0x49, 0x61, 0x4b, 0x59, 0x63, 0x39, 0x2d, 0x65, 0x6b, 0x6d, 0x79}));
}

TEST(GLConnCaseTable, ToleranceIsAMillionth) { EXPECT_EQ(GLConnAccess::epsilon(), 1e-6F); }

TEST(GLConnCaseTable, PrintsTheNameOfEveryCode) {
    GLConn conn;
    std::map<int, std::string> const expected = {
        {0, "caselut[0]:default"},      {3, "caselut[3]:Edge"},         {6, "caselut[6]:FDiag"},
        {129, "caselut[129]:SDiag"},    {1, "caselut[1]:Pixel"},        {7, "caselut[7]:Case 7"},
        {25, "caselut[25]:Case25"},     {0xe4, "caselut[228]:Case27"},  {0x29, "caselut[41]:Case41"},
        {27, "caselut[27]:Case27 inv"}, {254, "caselut[254]:Pixel inv"}};
    for (auto const& [entry, text] : expected) {
        EXPECT_EQ(printed(conn, entry), text);
    }
}

TEST(GLConnCaseTable, PrintsFlagsThatTheTableNeverHolds) {
    GLConn conn;
    GLConnAccess::caseLut(conn)[5] = 0xf08;
    EXPECT_EQ(printed(conn, 5), "caselut[5]:Pixel Conn FgConn BgConn inv");
    GLConnAccess::caseLut(conn)[5] = 0x403;
    EXPECT_EQ(printed(conn, 5), "caselut[5]:invalid Conn");
    GLConnAccess::caseLut(conn)[5] = 0x101;
    EXPECT_EQ(printed(conn, 5), "caselut[5]:Edge FgConn");
    GLConnAccess::caseLut(conn)[5] = 0x2ff;
    EXPECT_EQ(printed(conn, 5), "caselut[5]:invalid BgConn");
}

} // namespace
