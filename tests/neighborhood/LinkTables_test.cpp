// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../../src/neighborhood/LinkTables.h"

#include "support/OpenNeighborhood.h"
#include "support/PrivateAccess.h"
#include "support/oracle/PlainAdjacency.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace tamo::test {

struct FirstSizeTag {
    using Type = unsigned int const*;
    friend Type access(FirstSizeTag);
};
template struct PrivateAccess<FirstSizeTag, &Neighborhood::_n14iDiagSize>;

struct SecondSizeTag {
    using Type = unsigned int const*;
    friend Type access(SecondSizeTag);
};
template struct PrivateAccess<SecondSizeTag, &Neighborhood::_n14iiDiagSize>;

} // namespace tamo::test

namespace {

using tamo::LinkTables;
using tamo::test::Links;
using tamo::test::OpenNeighborhood;

// The tables by their bits, in the order that numbers the links.
std::map<unsigned int, Links> const kTables = {
    {1, {0x03, 0x0a, 0x0c, 0x05, 0x11, 0x22, 0x88, 0x44, 0x30, 0x50, 0xa0, 0xc0}},
    {2, {0x06, 0x09, 0x60, 0x90, 0x84, 0x48, 0x12, 0x21, 0x82, 0x28, 0x41, 0x14}},
    {4, {0x81, 0x42, 0x24, 0x18}},
    {8, {0x81, 0x41, 0x82, 0x21, 0x84, 0x09, 0x90}},
    {16, {0x81, 0x14, 0x28, 0x21, 0x84, 0x09, 0x90}},
};

TEST(LinkTables, StandInTheOrderOfTheirBits) {
    std::vector<unsigned int> bits;
    for (tamo::LinkTable const& table : LinkTables::all()) {
        bits.push_back(table.bit);
        EXPECT_EQ(Links(table.begin(), table.end()), kTables.at(table.bit)) << table.bit;
    }
    EXPECT_EQ(bits, (std::vector<unsigned int>{1, 2, 4, 8, 16}));
}

TEST(LinkTables, OfOneBitAreConnectedInTheirOrder) {
    for (auto const& [bit, links] : kTables) {
        Neighborhood n;
        EXPECT_TRUE(n.setupNeighborhood(static_cast<Neighborhood::NHConfig>(bit)));
        EXPECT_EQ(tamo::test::foregroundOf(n), links) << bit;
    }
}

TEST(LinkTables, ContainTheirOwnLinksAlone) {
    for (tamo::LinkTable const& table : LinkTables::all()) {
        unsigned int count = 0;
        for (unsigned int byte = 0; byte < 256; ++byte) {
            count += table.contains(static_cast<unsigned char>(byte)) ? 1U : 0U;
        }
        EXPECT_EQ(count, kTables.at(table.bit).size());
        for (unsigned int const link : kTables.at(table.bit)) {
            EXPECT_TRUE(table.contains(static_cast<unsigned char>(link)));
        }
    }
}

TEST(LinkTables, TypeOfALinkIsTheBitOfItsLength) {
    for (unsigned int link = 0; link < 28; ++link) {
        unsigned int const mask = tamo::test::plainMask(link);
        EXPECT_EQ(LinkTables::typeOf(static_cast<unsigned char>(mask)), tamo::test::plainLinkType(link)) << link;
    }
}

// The addresses make the linker look for the symbols.
TEST(LinkTables, SizesHaveSymbolsAsTheTablesHave) {
    std::vector<unsigned int const*> const sizes = {&OpenNeighborhood::_edgeSize, &OpenNeighborhood::_fDiagSize,
                                                    &OpenNeighborhood::_sDiagSize, access(tamo::test::FirstSizeTag()),
                                                    access(tamo::test::SecondSizeTag())};
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        EXPECT_EQ(*sizes[i], kTables.at(1U << i).size()) << i;
    }
}

} // namespace
