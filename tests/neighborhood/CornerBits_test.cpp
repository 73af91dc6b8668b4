// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../../src/neighborhood/CornerBits.h"

#include "support/oracle/PlainAdjacency.h"

#include <gtest/gtest.h>

namespace {

TEST(CornerBits, NextCornerIsTheLowestNotBelow) {
    for (unsigned int corners = 0; corners < 256; ++corners) {
        for (unsigned int from = 0; from < 10; ++from) {
            unsigned int expected = from < 8 ? 8 : from;
            for (unsigned int corner = 8; corner-- > from;) {
                expected = corners / (1U << corner) % 2 == 1 ? corner : expected;
            }
            EXPECT_EQ(tamo::nextCorner(corners, from), expected) << corners << " from " << from;
        }
    }
}

TEST(CornerBits, EndsOfALinkAreItsTwoCornersInOrder) {
    for (unsigned int link = 0; link < 28; ++link) {
        tamo::LinkEnds const ends = tamo::endsOf(static_cast<unsigned char>(tamo::test::plainMask(link)));
        EXPECT_EQ(ends.lower, tamo::test::plainLinks().at(link)[0]) << link;
        EXPECT_EQ(ends.higher, tamo::test::plainLinks().at(link)[1]) << link;
    }
}

} // namespace
