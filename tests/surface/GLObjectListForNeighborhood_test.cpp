// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/conn/GLConn.h>
#include <tamo/surface/TAMO.h>

#include "support/Digest.h"
#include "support/oracle/ConnectivityOracle.h"

#include <gtest/gtest.h>

namespace {

using tamo::test::Digest;

Neighborhood::NHConfig configOf(unsigned int value) { return static_cast<Neighborhood::NHConfig>(value); }

std::uint64_t digestOf(GLObjectList const& list) {
    Digest digest;
    digest.add(list);
    return digest.value();
}

void expectTetrahedra(GLObjectList const& list) {
    ASSERT_EQ(list.size(), 256U);
    for (unsigned int k = 0; k < 256; ++k) {
        EXPECT_TRUE(sameObject(*list[k], tamo::test::wrapPlain(tamo::test::sixTetrahedra(), k, false))) << k;
    }
}

TEST(GLObjectListForNeighborhood, EveryValueButThreeGivesTheSixTetrahedra) {
    for (unsigned int const value : {0U, 2U, 3U, 4U, 5U, 6U, 8U, 10U, 11U, 16U, 17U, 31U, 255U, 1000U, ~0U}) {
        SCOPED_TRACE(value);
        GLObjectList list;
        GLObjectListForNeighborhood(configOf(value), list);
        expectTetrahedra(list);
    }
}

TEST(GLObjectListForNeighborhood, TheThreeAreBuiltByCasesWithPolygonNormals) {
    for (Neighborhood::NHConfig const config : {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I}) {
        GLObjectList expected;
        GLConn(Neighborhood::N6).wrapLocal(config, &expected, /*recomputeNormals=*/true);
        GLObjectList list;
        list.push_back(new GLObject());
        GLObjectListForNeighborhood(config, list);
        EXPECT_EQ(list.size(), 256U);
        EXPECT_EQ(digestOf(list), digestOf(expected)) << config;
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
    EXPECT_EQ(digestOf(list), 6321158765555973218U);
}

} // namespace
