// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/OpenNeighborhood.h"

#include <gtest/gtest.h>

namespace {

using tamo::test::Links;
using tamo::test::messageOf;
using tamo::test::OpenNeighborhood;

constexpr char const* kInvalidLink = "GLConn::connect ERROR:invalid connection";
constexpr char const* kDefinedLink = "GLConn::connect ERROR:connection already defined";

TEST(NeighborhoodConnect, TakesEveryLinkAndDropsWhatItCrosses) {
    for (unsigned int number = 0; number < 28; ++number) {
        OpenNeighborhood n;
        n.clear();
        EXPECT_TRUE(n.connect(n.getConn(number)));
        EXPECT_EQ(tamo::test::foregroundOf(n), Links{n.getConn(number)});
        Links expected;
        for (unsigned char other = 0; other < 28; ++other) {
            if (!n.isCrossing(static_cast<unsigned char>(number), other)) {
                expected.push_back(n.getConn(other));
            }
        }
        EXPECT_EQ(tamo::test::backgroundOf(n), expected);
        EXPECT_EQ(expected.size(), number < 12 ? 28U : number < 24 ? 27U : 25U);
    }
}

TEST(NeighborhoodConnect, RefusesWhatIsNoLink) {
    for (unsigned int byte = 0; byte < 256; ++byte) {
        OpenNeighborhood n;
        bool const isLink = (byte & (byte - 1)) != 0 && ((byte & (byte - 1)) & ((byte & (byte - 1)) - 1)) == 0;
        EXPECT_EQ(messageOf([&] { n.connect(static_cast<unsigned char>(byte)); }),
                  isLink ? "nothing thrown" : kInvalidLink)
            << byte;
    }
}

TEST(NeighborhoodConnect, RefusesALinkTwice) {
    OpenNeighborhood n;
    n.connect(0x03);
    EXPECT_EQ(messageOf([&] { n.connect(0x03); }), kDefinedLink);
    EXPECT_EQ(n.getFgConnSize(), 1U);
}

TEST(NeighborhoodConnect, EdgesCrossNothingAndDiagonalsTheirPartners) {
    OpenNeighborhood const n;
    EXPECT_TRUE(n.isCrossing(12, 13));
    EXPECT_TRUE(n.isCrossing(24, 25));
    EXPECT_FALSE(n.isCrossing(13, 14));
    for (unsigned char i = 0; i < 28; ++i) {
        EXPECT_FALSE(n.isCrossing(i, i));
        EXPECT_FALSE(n.isCrossing(0, i));
        EXPECT_FALSE(n.isCrossing(i, 11));
    }
}

} // namespace
