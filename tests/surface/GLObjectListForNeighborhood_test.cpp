// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/TAMO.h>

#include "support/Digest.h"
#include "support/oracle/ConnectivityOracle.h"

#include <gtest/gtest.h>

namespace {

using tamo::test::Digest;

Neighborhood::NHConfig configOf(unsigned int value) { return static_cast<Neighborhood::NHConfig>(value); }

void expectTetrahedra(GLObjectList const& list) {
    ASSERT_EQ(list.size(), 256U);
    for (unsigned int k = 0; k < 256; ++k) {
        EXPECT_TRUE(sameObject(*list[k], tamo::test::wrapPlain(tamo::test::sixTetrahedra(), k, false))) << k;
    }
}

TEST(GLObjectListForNeighborhood, EveryValueButThreeGivesTheSixTetrahedra) {
    for (unsigned int const value : {0U, 2U, 3U, 4U, 5U, 6U, 8U, 10U, 16U, 17U, 31U, 1000U, ~0U}) {
        SCOPED_TRACE(value);
        GLObjectList list;
        GLObjectListForNeighborhood(configOf(value), list);
        expectTetrahedra(list);
    }
}

TEST(GLObjectListForNeighborhood, ReplacesWhatTheListHeld) {
    GLObjectList list;
    for (int i = 0; i < 300; ++i) {
        list.push_back(new GLObject());
        list[0]->push_back(new GLPolygon());
    }
    GLObjectListForNeighborhood(Neighborhood::N8, list);
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    expectTetrahedra(list);
}

TEST(GLObjectListForNeighborhood, ListIsTheSameToTheLastBitEverywhere) {
    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    Digest digest;
    digest.add(list);
    EXPECT_EQ(digest.value(), 6321158765555973218U);
}

} // namespace
