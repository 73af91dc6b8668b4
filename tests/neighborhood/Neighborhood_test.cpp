// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/OpenNeighborhood.h"
#include "support/PrivateAccess.h"
#include "support/StreamCapture.h"
#include "support/oracle/PlainAdjacency.h"

#include <gtest/gtest.h>

#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace tamo::test {

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
constexpr char const* kDefinedLink = "GLConn::connect ERROR:connection already defined";

// Returns the links numbered `first` to `last` - 1.
Links linksFrom(unsigned int first, unsigned int last) {
    Links links;
    for (unsigned int number = first; number < last; ++number) {
        links.push_back(tamo::test::plainMask(number));
    }
    return links;
}

Neighborhood::NHConfig configOf(unsigned int bits) { return static_cast<Neighborhood::NHConfig>(bits); }

TEST(Neighborhood, NumbersItsLinksEdgesFirst) {
    OpenNeighborhood n;
    EXPECT_EQ(tamo::test::linksOf(n), linksFrom(0, 28));
    for (int i = 0; i < 28; ++i) {
        EXPECT_EQ(n[i], n.getConn(static_cast<unsigned int>(i)));
    }
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
    Links expected = linksFrom(0, 12);
    for (unsigned int link : {0x81U, 0x41U, 0x82U, 0x21U, 0x84U, 0x09U, 0x90U}) {
        expected.push_back(link);
    }
    EXPECT_EQ(tamo::test::foregroundOf(n), expected);
    n.setupNeighborhood(Neighborhood::N26);
    EXPECT_EQ(tamo::test::foregroundOf(n), linksFrom(0, 28));
    n.setupNeighborhood(Neighborhood::N12);
    EXPECT_EQ(tamo::test::foregroundOf(n), linksFrom(12, 28));
}

TEST(Neighborhood, SharedLinksAreRebuiltWithoutLeftovers) {
    Neighborhood n;
    auto const rebuild = [&n] { return (n.*access(tamo::test::SetupConnectTag()))(); };
    Links const edges = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    n.setupNeighborhood(Neighborhood::N14I);
    EXPECT_EQ(rebuild(), 19);
    for (unsigned int const config : {7U, 7U, 1U, 3U}) {
        EXPECT_TRUE(n.setupNeighborhood(configOf(config)));
        EXPECT_EQ(tamo::test::sharedOf(n), edges) << config;
        EXPECT_EQ(rebuild(), 12) << config;
        EXPECT_EQ(tamo::test::sharedOf(n), edges) << config;
    }
    n.setupNeighborhood(Neighborhood::N8);
    EXPECT_EQ(n.getConnIdxSize(), 0U);
    EXPECT_EQ(rebuild(), 0);
}

TEST(Neighborhood, AssignedToItselfKeepsItsSystem) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N14II);
    Links const foreground = tamo::test::foregroundOf(n);
    Neighborhood const& same = n;
    n = same;
    EXPECT_EQ(tamo::test::foregroundOf(n), foreground);
    EXPECT_EQ(n.getConnIdxSize(), 19U);
    EXPECT_STREQ(n.getName(), "N14II");
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
    EXPECT_EQ(tamo::test::backgroundOf(n), linksFrom(0, 28));
    EXPECT_EQ(n.getConnIdxSize(), 0U);
    EXPECT_STREQ(n.getName(), "invalid");
}

TEST(Neighborhood, ClearKeepsNameAndSharedLinks) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N26);
    n.clear();
    EXPECT_EQ(n.getFgConnSize(), 0U);
    EXPECT_EQ(tamo::test::backgroundOf(n), linksFrom(0, 28));
    EXPECT_EQ(n.getConnIdxSize(), 12U);
    EXPECT_STREQ(n.getName(), "N26");
    EXPECT_EQ((n.*access(tamo::test::SetupConnectTag()))(), 0);
    EXPECT_EQ(n.getConnIdxSize(), 0U);
}

TEST(Neighborhood, FailedSetupKeepsWhatItConnectedAndTheOldNameAndSharedLinks) {
    Neighborhood n;
    n.setupNeighborhood(Neighborhood::N14I);
    Links const shared = tamo::test::sharedOf(n);
    EXPECT_EQ(messageOf([&] { n.setupNeighborhood(configOf(11)); }), kDefinedLink);
    // Edges, face diagonals and 0-7 are connected; 0-6 comes again.
    Links expected = linksFrom(0, 25);
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
        EXPECT_EQ(tamo::test::linksOf(*n), linksFrom(0, 28));
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
