// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/neighborhood/Neighborhood.h>

#include "support/oracle/PlainAdjacency.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using tamo::test::PlainAdjacency;
using tamo::test::plainComponents;
using Components = std::vector<unsigned char>;

Neighborhood systemOf(unsigned int config) {
    Neighborhood neighborhood;
    neighborhood.setupNeighborhood(static_cast<Neighborhood::NHConfig>(config));
    return neighborhood;
}

// Returns the pieces of the foreground; the list holds something before.
Components foregroundOf(Neighborhood const& neighborhood, unsigned int configuration) {
    Components objects = {1, 2, 3};
    unsigned int const count = neighborhood.getFgObjects(static_cast<unsigned char>(configuration), objects);
    EXPECT_EQ(count, objects.size());
    return objects;
}

Components backgroundOf(Neighborhood const& neighborhood, unsigned int configuration) {
    Components objects = {1, 2, 3};
    unsigned int const count = neighborhood.getBgObjects(static_cast<unsigned char>(configuration), objects);
    EXPECT_EQ(count, objects.size());
    return objects;
}

std::vector<unsigned int> widened(Components const& objects) { return {objects.begin(), objects.end()}; }

// Every union of link tables that has no link twice.
std::vector<unsigned int> completeConfigs() {
    std::vector<unsigned int> configs;
    for (unsigned int config = 0; config < 32; ++config) {
        if (PlainAdjacency(config).isComplete) {
            configs.push_back(config);
        }
    }
    return configs;
}

class CellComponents : public testing::TestWithParam<unsigned int> {};

TEST_P(CellComponents, AreWhatWalkingAlongTheLinksReaches) {
    PlainAdjacency const plain(GetParam());
    Neighborhood const neighborhood = systemOf(GetParam());
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        SCOPED_TRACE(configuration);
        EXPECT_EQ(widened(foregroundOf(neighborhood, configuration)), plainComponents(configuration, plain.foreground));
        EXPECT_EQ(widened(backgroundOf(neighborhood, configuration)),
                  plainComponents(255 - configuration, plain.background));
    }
}

// Returns the corners of all pieces; fails where two of them share one.
unsigned int unionOf(Components const& objects) {
    unsigned int corners = 0;
    for (unsigned char const object : objects) {
        EXPECT_EQ(corners & object, 0U);
        corners |= object;
    }
    return corners;
}

TEST_P(CellComponents, CoverEachCornerOnce) {
    Neighborhood const neighborhood = systemOf(GetParam());
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        SCOPED_TRACE(configuration);
        EXPECT_EQ(unionOf(foregroundOf(neighborhood, configuration)), configuration);
        EXPECT_EQ(unionOf(backgroundOf(neighborhood, configuration)), 255 - configuration);
    }
}

INSTANTIATE_TEST_SUITE_P(AllConfigs, CellComponents, testing::ValuesIn(completeConfigs()),
                         testing::PrintToStringParamName());

TEST(CellComponentsPatterns, OppositeCornersAreOneOnlyWithTheSpaceDiagonal) {
    EXPECT_EQ(foregroundOf(systemOf(Neighborhood::N6), 0x81), (Components{0x01, 0x80}));
    EXPECT_EQ(foregroundOf(systemOf(Neighborhood::N26), 0x81), (Components{0x81}));
    EXPECT_EQ(foregroundOf(systemOf(Neighborhood::N14I), 0x81), (Components{0x81}));
    EXPECT_EQ(foregroundOf(systemOf(Neighborhood::N14I), 0x42), (Components{0x02, 0x40}));
}

TEST(CellComponentsPatterns, BackgroundIsConnectedByTheComplementaryLinks) {
    EXPECT_EQ(backgroundOf(systemOf(Neighborhood::N26), 0x81), (Components{0x7e}));
    EXPECT_EQ(backgroundOf(systemOf(Neighborhood::N6), 0x7e), (Components{0x81}));
}

TEST(CellComponentsPatterns, FullCellIsOnePieceUnlessOnlySpaceDiagonalsConnect) {
    for (unsigned int const config :
         {Neighborhood::N6, Neighborhood::N12, Neighborhood::N26, Neighborhood::N14I, Neighborhood::N14II}) {
        SCOPED_TRACE(config);
        EXPECT_EQ(foregroundOf(systemOf(config), 0xff), (Components{0xff}));
    }
    EXPECT_EQ(foregroundOf(systemOf(Neighborhood::N8), 0xff), (Components{0x81, 0x42, 0x24, 0x18}));
}

TEST(CellComponentsPatterns, NothingHasNoPiece) {
    Neighborhood const neighborhood = systemOf(Neighborhood::N6);
    EXPECT_TRUE(foregroundOf(neighborhood, 0x00).empty());
    EXPECT_TRUE(backgroundOf(neighborhood, 0xff).empty());
}

// A system of any links.
struct AnySystem : Neighborhood {
    explicit AnySystem(std::vector<unsigned int> const& links) {
        clear();
        for (unsigned int const link : links) {
            connect(static_cast<unsigned char>(tamo::test::plainMask(link)));
        }
    }
};

TEST(CellComponentsPatterns, HoldForAnySetOfLinks) {
    std::mt19937 engine(5);
    for (int round = 0; round < 500; ++round) {
        std::vector<unsigned int> links;
        for (unsigned int link = 0; link < 28; ++link) {
            if (engine() % 8 == 0) {
                links.push_back(link);
            }
        }
        AnySystem const neighborhood(links);
        for (unsigned int configuration = 0; configuration < 256; ++configuration) {
            EXPECT_EQ(widened(foregroundOf(neighborhood, configuration)), plainComponents(configuration, links));
        }
    }
}

TEST(CellComponentsPatterns, LastTwoCornersMakeOnePiece) {
    EXPECT_EQ(foregroundOf(AnySystem({11}), 0xff), (Components{1, 2, 4, 8, 16, 32, 192}));
}

TEST(CellComponentsPatterns, WithoutASystemEveryCornerIsAPiece) {
    Neighborhood const neighborhood;
    Components const corners = {1, 2, 4, 8, 16, 32, 64, 128};
    EXPECT_EQ(foregroundOf(neighborhood, 0xff), corners);
    EXPECT_EQ(backgroundOf(neighborhood, 0x00), corners);
}

} // namespace
