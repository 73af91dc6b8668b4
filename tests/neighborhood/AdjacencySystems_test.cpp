// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/OpenNeighborhood.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <string>
#include <vector>

// Recomputes every adjacency system from the geometry of the cell: links by their length, crossings by their midpoints.

namespace {

using tamo::test::Links;
using tamo::test::OpenNeighborhood;

using Point = std::array<int, 3>;

std::array<unsigned int, 2> endsOf(unsigned int link) {
    std::array<unsigned int, 2> ends{};
    unsigned int found = 0;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        if (std::bitset<8>(link)[corner]) {
            ends.at(found++) = corner;
        }
    }
    return ends;
}

int coordinate(unsigned int corner, unsigned int axis) { return static_cast<int>(corner >> axis) % 2; }

// Returns the sum of a link's end positions: its midpoint, doubled.
Point doubledMidpoint(unsigned int link) {
    auto const [a, b] = endsOf(link);
    Point sum{};
    for (unsigned int axis = 0; axis < 3; ++axis) {
        sum.at(axis) = coordinate(a, axis) + coordinate(b, axis);
    }
    return sum;
}

// Returns the number of axes along which a link's ends differ: 1 edge, 2 face diagonal, 3 space diagonal.
std::size_t axesOf(unsigned int link) {
    auto const [a, b] = endsOf(link);
    return std::bitset<3>(a ^ b).count();
}

bool isCrossing(unsigned int a, unsigned int b) { return a != b && doubledMidpoint(a) == doubledMidpoint(b); }

Links allLinks() {
    Links links;
    for (unsigned int byte = 0; byte < 256; ++byte) {
        if (std::bitset<8>(byte).count() == 2) {
            links.push_back(byte);
        }
    }
    return links;
}

Links sorted(Links links) {
    std::sort(links.begin(), links.end());
    return links;
}

Links withAxes(std::size_t axes) {
    Links links = allLinks();
    links.erase(std::remove_if(links.begin(), links.end(), [=](unsigned int link) { return axesOf(link) != axes; }),
                links.end());
    return links;
}

template <typename Table> Links tableOf(Table const& table, unsigned int size) { return Links(table, table + size); }

// Returns the links of one bit of a configuration.
Links linksOfBit(unsigned int bit) {
    auto const mask = [](unsigned int a, unsigned int b) { return 1U << a | 1U << b; };
    if (bit < 3) {
        return withAxes(bit + 1);
    }
    Links links = {mask(0, 7)};
    for (unsigned int link : withAxes(2)) {
        auto const [a, b] = endsOf(link);
        if (a == 0 || b == 7) {
            links.push_back(link);
        }
    }
    if (bit == 4) {
        std::replace(links.begin(), links.end(), mask(0, 6), mask(2, 4));
        std::replace(links.begin(), links.end(), mask(1, 7), mask(3, 5));
    }
    return links;
}

Links foregroundLinks(unsigned int config) {
    Links links;
    for (unsigned int bit = 0; bit < 5; ++bit) {
        if ((config >> bit) % 2 == 1) {
            Links const more = linksOfBit(bit);
            links.insert(links.end(), more.begin(), more.end());
        }
    }
    return links;
}

bool contains(Links const& links, unsigned int link) {
    return std::find(links.begin(), links.end(), link) != links.end();
}

bool hasDuplicates(Links const& links) {
    Links const inOrder = sorted(links);
    return std::adjacent_find(inOrder.begin(), inOrder.end()) != inOrder.end();
}

class AdjacencySystem : public testing::TestWithParam<unsigned int> {
  protected:
    [[nodiscard]] static Neighborhood::NHConfig config() { return static_cast<Neighborhood::NHConfig>(GetParam()); }
    [[nodiscard]] static bool isOverlapping() { return hasDuplicates(foregroundLinks(GetParam())); }
};

TEST_P(AdjacencySystem, ForegroundIsTheUnionOfItsTables) {
    Neighborhood n;
    if (isOverlapping()) {
        EXPECT_EQ(tamo::test::messageOf([&] { n.setupNeighborhood(config()); }),
                  "GLConn::connect ERROR:connection already defined");
        return;
    }
    EXPECT_TRUE(n.setupNeighborhood(config()));
    EXPECT_EQ(sorted(tamo::test::foregroundOf(n)), sorted(foregroundLinks(GetParam())));
}

TEST_P(AdjacencySystem, BackgroundIsEveryLinkThatCrossesNoForegroundLink) {
    if (isOverlapping()) {
        return;
    }
    Neighborhood n;
    n.setupNeighborhood(config());
    Links const foreground = foregroundLinks(GetParam());
    Links background;
    Links shared;
    for (unsigned int number = 0; number < 28; ++number) {
        unsigned int const link = n.getConn(number);
        auto const crosses = [link](unsigned int other) { return isCrossing(link, other); };
        if (std::none_of(foreground.begin(), foreground.end(), crosses)) {
            background.push_back(link);
            if (contains(foreground, link)) {
                shared.push_back(number);
            }
        }
    }
    EXPECT_EQ(tamo::test::backgroundOf(n), background);
    EXPECT_EQ(tamo::test::sharedOf(n), shared);
}

INSTANTIATE_TEST_SUITE_P(Bits, AdjacencySystem, testing::Range(0U, 32U));

TEST(AdjacencySystems, NamedSystemsHaveTheirCounts) {
    struct Row {
        unsigned int config;
        unsigned int foreground;
        unsigned int background;
        unsigned int shared;
        std::string name;
    };
    std::vector<Row> const rows = {{1, 12, 28, 12, "N6"},     {4, 4, 24, 0, "N8"},     {6, 16, 12, 0, "N12"},
                                   {7, 28, 12, 12, "N26"},    {9, 19, 19, 19, "N14I"}, {17, 19, 19, 19, "N14II"},
                                   {3, 24, 16, 12, "invalid"}};
    Neighborhood n;
    for (Row const& row : rows) {
        SCOPED_TRACE(row.config);
        EXPECT_TRUE(n.setupNeighborhood(static_cast<Neighborhood::NHConfig>(row.config)));
        EXPECT_EQ(n.getFgConnSize(), row.foreground);
        EXPECT_EQ(n.getBgConnSize(), row.background);
        EXPECT_EQ(n.getConnIdxSize(), row.shared);
        EXPECT_EQ(n.getName(), row.name);
    }
}

TEST(AdjacencySystems, FourteenNeighborSystemsAreTheirOwnComplement) {
    for (Neighborhood::NHConfig const config : {Neighborhood::N14I, Neighborhood::N14II}) {
        Neighborhood n;
        n.setupNeighborhood(config);
        EXPECT_EQ(sorted(tamo::test::foregroundOf(n)), sorted(tamo::test::backgroundOf(n)));
    }
}

TEST(LinkTables, HoldTheLinksOfTheirLength) {
    EXPECT_EQ(sorted(tableOf(OpenNeighborhood::_edge, OpenNeighborhood::_edgeSize)), withAxes(1));
    EXPECT_EQ(sorted(tableOf(OpenNeighborhood::_fDiag, OpenNeighborhood::_fDiagSize)), withAxes(2));
    EXPECT_EQ(sorted(tableOf(OpenNeighborhood::_sDiag, OpenNeighborhood::_sDiagSize)), withAxes(3));
}

TEST(LinkTables, FaceDiagonalsComeInCrossingPairsFaceByFace) {
    // Face z = 0 has the doubled midpoint (1, 1, 0), and so on.
    std::vector<Point> const faces = {{1, 1, 0}, {1, 1, 2}, {1, 2, 1}, {1, 0, 1}, {2, 1, 1}, {0, 1, 1}};
    for (unsigned int i = 0; i < OpenNeighborhood::_fDiagSize; ++i) {
        EXPECT_EQ(doubledMidpoint(OpenNeighborhood::_fDiag[i]), faces.at(i / 2)) << i;
    }
}

TEST(LinkTables, CrossingIsHavingTheSameMidpoint) {
    OpenNeighborhood n;
    for (unsigned char a = 0; a < 28; ++a) {
        for (unsigned char b = 0; b < 28; ++b) {
            EXPECT_EQ(n.isCrossing(a, b), isCrossing(n.getConn(a), n.getConn(b))) << +a << " " << +b;
        }
    }
}

} // namespace
