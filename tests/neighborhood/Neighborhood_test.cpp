// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/OpenNeighborhood.h"
#include "support/PrivateAccess.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace tamo::test {

struct FirstSevenTag {
    using Type = unsigned char const (*)[7];
    friend Type access(FirstSevenTag);
};
template struct PrivateAccess<FirstSevenTag, &Neighborhood::_n14iDiag>;

struct SecondSevenTag {
    using Type = unsigned char const (*)[7];
    friend Type access(SecondSevenTag);
};
template struct PrivateAccess<SecondSevenTag, &Neighborhood::_n14iiDiag>;

struct NamesTag {
    using Type = char const* (*)[7];
    friend Type access(NamesTag);
};
template struct PrivateAccess<NamesTag, &Neighborhood::_nhNames>;

struct SetupConnectTag {
    using Type = int (Neighborhood::*)();
    friend Type access(SetupConnectTag);
};
template struct PrivateAccess<SetupConnectTag, &Neighborhood::setupConnect>;

} // namespace tamo::test

static_assert(!std::is_polymorphic_v<Neighborhood>);

namespace {

using tamo::test::Links;
using tamo::test::messageOf;
using tamo::test::OpenNeighborhood;

constexpr char const* kInvalidIndex = "Neighborhood::getConn invalid Index";
constexpr char const* kInvalidLink = "GLConn::connect ERROR:invalid connection";
constexpr char const* kDefinedLink = "GLConn::connect ERROR:connection already defined";

using Pairs = std::vector<std::vector<unsigned int>>;

Links masksOf(Pairs const& pairs) {
    Links masks;
    for (auto const& pair : pairs) {
        masks.push_back(1U << pair.at(0) | 1U << pair.at(1));
    }
    return masks;
}

Pairs const kLinks = {{0, 1}, {1, 3}, {2, 3}, {0, 2}, {0, 4}, {1, 5}, {3, 7}, {2, 6}, {4, 5}, {4, 6},
                      {5, 7}, {6, 7}, {1, 2}, {0, 3}, {5, 6}, {4, 7}, {2, 7}, {3, 6}, {1, 4}, {0, 5},
                      {1, 7}, {3, 5}, {0, 6}, {2, 4}, {0, 7}, {1, 6}, {2, 5}, {3, 4}};

Neighborhood::NHConfig configOf(unsigned int bits) { return static_cast<Neighborhood::NHConfig>(bits); }

template <typename Table> Links tableOf(Table const& table) { return Links(std::begin(table), std::end(table)); }

TEST(Neighborhood, NumbersItsLinksEdgesFirst) {
    OpenNeighborhood n;
    EXPECT_EQ(tamo::test::linksOf(n), masksOf(kLinks));
    for (int i = 0; i < 28; ++i) {
        EXPECT_EQ(n[i], n.getConn(static_cast<unsigned int>(i)));
    }
}

TEST(Neighborhood, TablesStandInTheirOrder) {
    Links const links = masksOf(kLinks);
    EXPECT_EQ(tableOf(OpenNeighborhood::_edge), Links(links.begin(), links.begin() + 12));
    EXPECT_EQ(tableOf(OpenNeighborhood::_fDiag), Links(links.begin() + 12, links.begin() + 24));
    EXPECT_EQ(tableOf(OpenNeighborhood::_sDiag), Links(links.begin() + 24, links.end()));
    EXPECT_EQ(tableOf(*access(tamo::test::FirstSevenTag())),
              masksOf({{0, 7}, {0, 6}, {1, 7}, {0, 5}, {2, 7}, {0, 3}, {4, 7}}));
    EXPECT_EQ(tableOf(*access(tamo::test::SecondSevenTag())),
              masksOf({{0, 7}, {2, 4}, {3, 5}, {0, 5}, {2, 7}, {0, 3}, {4, 7}}));
}

TEST(Neighborhood, NamesStandInTheirOrder) {
    char const* const(&names)[7] = *access(tamo::test::NamesTag());
    EXPECT_EQ(std::vector<std::string>(std::begin(names), std::end(names)),
              (std::vector<std::string>{"N6", "N8", "N12", "N14I", "N14II", "N26", "invalid"}));
}

TEST(Neighborhood, NamedValuesAreSetsOfTables) {
    EXPECT_EQ(Neighborhood::N6, 1U);
    EXPECT_EQ(Neighborhood::N8, 4U);
    EXPECT_EQ(Neighborhood::N12, 6U);
    EXPECT_EQ(Neighborhood::N26, 7U);
    EXPECT_EQ(Neighborhood::N14I, 9U);
    EXPECT_EQ(Neighborhood::N14II, 17U);
}

TEST(Neighborhood, StartsWithoutASystem) {
    Neighborhood const n;
    EXPECT_EQ(n.getConnSize(), 28U);
    EXPECT_EQ(n.getFgConnSize(), 0U);
    EXPECT_EQ(n.getBgConnSize(), 0U);
    EXPECT_EQ(n.getConnIdxSize(), 0U);
    EXPECT_STREQ(n.getName(), "invalid");
}

TEST(Neighborhood, ForegroundKeepsTheOrderOfConnection) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N14I);
    Links expected = masksOf(Pairs(kLinks.begin(), kLinks.begin() + 12));
    for (unsigned int link : {0x81U, 0x41U, 0x82U, 0x21U, 0x84U, 0x09U, 0x90U}) {
        expected.push_back(link);
    }
    EXPECT_EQ(tamo::test::foregroundOf(n), expected);
    n.setupNeighborhood(Neighborhood::N26);
    EXPECT_EQ(tamo::test::foregroundOf(n), masksOf(kLinks));
    n.setupNeighborhood(Neighborhood::N12);
    EXPECT_EQ(tamo::test::foregroundOf(n), masksOf(Pairs(kLinks.begin() + 12, kLinks.end())));
}

TEST(Neighborhood, BitsAboveTheTablesAreIgnoredButUnnamed) {
    for (unsigned int high : {32U, 64U, 0x80000000U}) {
        Neighborhood n;
        EXPECT_TRUE(n.setupNeighborhood(configOf(high | Neighborhood::N6)));
        EXPECT_EQ(n.getFgConnSize(), 12U);
        EXPECT_STREQ(n.getName(), "invalid");
    }
}

TEST(Neighborhood, NoTableGivesFullBackground) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N6);
    EXPECT_TRUE(n.setupNeighborhood(configOf(0)));
    EXPECT_EQ(n.getFgConnSize(), 0U);
    EXPECT_EQ(tamo::test::backgroundOf(n), masksOf(kLinks));
    EXPECT_EQ(n.getConnIdxSize(), 0U);
    EXPECT_STREQ(n.getName(), "invalid");
}

TEST(Neighborhood, ClearKeepsNameAndSharedLinks) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N26);
    n.clear();
    EXPECT_EQ(n.getFgConnSize(), 0U);
    EXPECT_EQ(tamo::test::backgroundOf(n), masksOf(kLinks));
    EXPECT_EQ(n.getConnIdxSize(), 12U);
    EXPECT_STREQ(n.getName(), "N26");
    EXPECT_EQ((n.*access(tamo::test::SetupConnectTag()))(), 0);
    EXPECT_EQ(n.getConnIdxSize(), 0U);
}

TEST(Neighborhood, ConnectTakesEveryLinkAndDropsWhatItCrosses) {
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

TEST(Neighborhood, ConnectRefusesWhatIsNoLink) {
    for (unsigned int byte = 0; byte < 256; ++byte) {
        OpenNeighborhood n;
        bool const isLink = (byte & (byte - 1)) != 0 && ((byte & (byte - 1)) & ((byte & (byte - 1)) - 1)) == 0;
        EXPECT_EQ(messageOf([&] { n.connect(static_cast<unsigned char>(byte)); }),
                  isLink ? "nothing thrown" : kInvalidLink)
            << byte;
    }
}

TEST(Neighborhood, ConnectRefusesALinkTwice) {
    OpenNeighborhood n;
    n.connect(0x03);
    EXPECT_EQ(messageOf([&] { n.connect(0x03); }), kDefinedLink);
    EXPECT_EQ(n.getFgConnSize(), 1U);
}

TEST(Neighborhood, EdgesCrossNothingAndDiagonalsTheirPartners) {
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

TEST(Neighborhood, FailedSetupKeepsWhatItConnectedAndTheOldNameAndSharedLinks) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N14I);
    Links const shared = tamo::test::sharedOf(n);
    EXPECT_EQ(messageOf([&] { n.setupNeighborhood(configOf(11)); }), kDefinedLink);
    // Edges, face diagonals and 0-7 are connected; 0-6 comes again.
    Links expected = masksOf(Pairs(kLinks.begin(), kLinks.begin() + 25));
    EXPECT_EQ(tamo::test::foregroundOf(n), expected);
    expected.erase(expected.begin() + 12, expected.begin() + 24);
    EXPECT_EQ(tamo::test::backgroundOf(n), expected);
    EXPECT_EQ(tamo::test::sharedOf(n), shared);
    EXPECT_STREQ(n.getName(), "N14I");
    EXPECT_TRUE(n.setupNeighborhood(Neighborhood::N6));
    EXPECT_EQ(n.getFgConnSize(), 12U);
}

TEST(Neighborhood, EveryGetterRefusesTheIndexPastItsList) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N26);
    for (unsigned int past : {0U, 1U, 1000U}) {
        EXPECT_EQ(messageOf([&] { static_cast<void>(n.getConn(28 + past)); }), kInvalidIndex);
        EXPECT_EQ(messageOf([&] { static_cast<void>(n.getFgConn(28 + past)); }), kInvalidIndex);
        EXPECT_EQ(messageOf([&] { static_cast<void>(n.getBgConn(12 + past)); }), kInvalidIndex);
        EXPECT_EQ(messageOf([&] { static_cast<void>(n.getConnIdx(12 + past)); }), kInvalidIndex);
    }
    EXPECT_EQ(messageOf([&] { static_cast<void>(Neighborhood().getFgConn(0)); }), kInvalidIndex);
}

TEST(Neighborhood, CopiesShareTheCornersAndOwnTheLists) {
    auto source = std::make_unique<OpenNeighborhood>();
    source->setupNeighborhood(Neighborhood::N14II);
    OpenNeighborhood const copy(*source);
    OpenNeighborhood assigned;
    assigned = *source;
    EXPECT_EQ(copy._vertices, source->_vertices);
    EXPECT_EQ(assigned._vertices, source->_vertices);
    source->setupNeighborhood(Neighborhood::N6);
    source.reset();
    for (OpenNeighborhood const* n : {&copy, &std::as_const(assigned)}) {
        EXPECT_EQ(n->getFgConnSize(), 19U);
        EXPECT_EQ(n->getBgConnSize(), 19U);
        EXPECT_EQ(n->getConnIdxSize(), 19U);
        EXPECT_EQ(tamo::test::linksOf(*n), masksOf(kLinks));
        EXPECT_STREQ(n->getName(), "N14II");
        EXPECT_EQ(n->_vertices->vertex(5), (GLVec3f{1, 0, 1}));
        EXPECT_TRUE(n->isCrossing(12, 13));
    }
}

TEST(Neighborhood, ShowPrintsCornerSevenFirst) {
    for (unsigned int conf = 0; conf < 256; ++conf) {
        std::string expected(8, '0');
        for (unsigned int corner = 0; corner < 8; ++corner) {
            expected[7 - corner] = (conf >> corner) % 2 == 1 ? '*' : '0';
        }
        tamo::test::StreamCapture const output(std::cout);
        Neighborhood().show(static_cast<unsigned char>(conf));
        EXPECT_EQ(output.text(), expected + "\n");
    }
}

} // namespace
