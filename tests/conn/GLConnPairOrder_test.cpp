// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/Digest.h"
#include "support/GLConnAccess.h"
#include "support/TextCapture.h"
#include "support/oracle/PlainAdjacency.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace tamo::test;

// Makes the polygons of one pair of components after the other, with one descriptor for all, as the builder does.
class PairByPair {
  public:
    explicit PairByPair(unsigned int config) {
        _conn.setupConn(static_cast<Neighborhood::NHConfig>(config));
        _conn.setupProp();
    }

    void build(unsigned int fg, unsigned int bg, unsigned int configuration, GLObject& object) {
        ConnArguments arguments;
        arguments.fg = static_cast<unsigned char>(fg);
        arguments.bg = static_cast<unsigned char>(bg);
        arguments.info = GLConnAccess::collect(_conn, _desc, arguments.fg, arguments.bg);
        if (_desc.count > 0) {
            GLConnAccess::dispatch(_conn, object, _desc, arguments);
        } else {
            std::cerr << "conf:" << configuration << " no polygon created!" << std::endl;
        }
    }

  private:
    GLConn _conn;
    GLPolygonDesc _desc{GLConnAccess::midpoints(_conn), 28};
};

std::uint64_t digestOf(GLObject const& object) {
    Digest digest;
    for (GLPolygon const* polygon : object) {
        digest.add(*polygon);
    }
    return digest.value();
}

class GLConnPairOrder : public testing::TestWithParam<unsigned int> {};

// Returns the component pairs of a configuration in the order of two nested loops, the outer one over the foreground
// or over the background.
std::vector<std::pair<unsigned int, unsigned int>> pairsOf(PlainAdjacency const& plain, unsigned int configuration,
                                                           bool isForegroundOutside) {
    std::vector<std::pair<unsigned int, unsigned int>> pairs;
    for (unsigned int const fg : plainComponents(configuration, plain.foreground)) {
        for (unsigned int const bg : plainComponents(255 - configuration, plain.background)) {
            pairs.emplace_back(fg, bg);
        }
    }
    if (!isForegroundOutside) {
        // Components are listed by their lowest corner.
        auto const lowest = [](unsigned int corners) { return corners & (~corners + 1); };
        std::stable_sort(pairs.begin(), pairs.end(),
                         [&](auto const& a, auto const& b) { return lowest(a.second) < lowest(b.second); });
    }
    return pairs;
}

// The nesting shows under no union of link tables: pairs that have links come in the same order either way, and each
// pair without writes one and the same line. So the list is held, but which of the two loops is the outer one is not.
TEST_P(GLConnPairOrder, ListIsThatOfAllPairsInEitherNesting) {
    PlainAdjacency const plain(GetParam());
    TextCapture const errors(std::cerr);
    GLObjectList list;
    GLConn().wrapLocal(static_cast<Neighborhood::NHConfig>(GetParam()), &list, /*recomputeNormals=*/false);
    std::string const expectedErrors = errors.text();
    for (bool const isForegroundOutside : {true, false}) {
        PairByPair builder(GetParam());
        for (unsigned int configuration = 0; configuration < 255; ++configuration) {
            GLObject object;
            for (auto const& [fg, bg] : pairsOf(plain, configuration, isForegroundOutside)) {
                builder.build(fg, bg, configuration, object);
            }
            EXPECT_EQ(digestOf(*list[configuration]), digestOf(object)) << configuration;
        }
    }
    EXPECT_EQ(errors.text(), expectedErrors + expectedErrors + expectedErrors);
}

INSTANTIATE_TEST_SUITE_P(UnionsOfTables, GLConnPairOrder, testing::Range(0U, 32U));

} // namespace
