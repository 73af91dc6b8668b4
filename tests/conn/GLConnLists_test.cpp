// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/TextCapture.h"
#include "support/oracle/PlainBuilder.h"

#include <tamo/conn/GLConn.h>

#include <gtest/gtest.h>

#include <iostream>
#include <string>
#include <tuple>

namespace {

using namespace tamo::test;

testing::AssertionResult sameObject(GLObject const& object, PlainCell const& cell) {
    if (object.size() != cell.polygons.size()) {
        return testing::AssertionFailure() << object.size() << " polygons are not " << cell.polygons.size();
    }
    for (unsigned int i = 0; i < object.size(); ++i) {
        testing::AssertionResult result = samePolygon(*object[i], cell.polygons[i]);
        if (!result) {
            return result << " in polygon " << i;
        }
    }
    return testing::AssertionSuccess();
}

// A union of link tables and whether normals follow the polygons.
using ListParameter = std::tuple<unsigned int, bool>;

class GLConnLists : public testing::TestWithParam<ListParameter> {
  protected:
    [[nodiscard]] static unsigned int config() { return std::get<0>(GetParam()); }
    [[nodiscard]] static bool recompute() { return std::get<1>(GetParam()); }
};

TEST_P(GLConnLists, EqualTheSlowBuilderBitForBit) {
    PlainBuilder const plain(config());
    GLObjectList list;
    TextCapture const errors(std::cerr);
    GLConn().wrapLocal(static_cast<Neighborhood::NHConfig>(config()), &list, recompute());
    std::string expectedErrors =
        plain.adjacency().isComplete ? "" : "cought exception:\"GLConn::connect ERROR:connection already defined\"\n";
    ASSERT_EQ(list.size(), 256U);
    for (unsigned int configuration = 0; configuration < 255; ++configuration) {
        SCOPED_TRACE(configuration);
        PlainCell const cell = plain.build(configuration, recompute());
        if (!cell.isOpen) {
            EXPECT_TRUE(sameObject(*list[configuration], cell));
        } else if (list[configuration]->size() == 0) {
            // Of the open shapes, those that no fan serves are reported; no named system has them.
            expectedErrors += "normal not found\n";
        }
        for (unsigned int pair = 0; pair < cell.pairsWithoutLink; ++pair) {
            expectedErrors += "conf:" + std::to_string(configuration) + " no polygon created!\n";
        }
    }
    EXPECT_EQ(list[0]->size(), 0U);
    EXPECT_EQ(list[255]->size(), 0U);
    EXPECT_EQ(errors.text(), expectedErrors);
}

// The unions of tables that give every component a polygon of at least three vertices, or none at all. Those from 12
// on name a link twice and keep what was connected before it; 17 is made by tetrahedra, never by cases.
constexpr unsigned int kUnions[] = {11, 19, 27, 0,  1,  2,  3,  4,  5,  6,  7,  9, 12,
                                    13, 14, 15, 20, 21, 22, 23, 25, 28, 29, 30, 31};

std::string nameOfList(testing::TestParamInfo<ListParameter> const& parameter) {
    return std::to_string(std::get<0>(parameter.param)) +
           (std::get<1>(parameter.param) ? "WithPolygonNormals" : "WithLinkNormals");
}

INSTANTIATE_TEST_SUITE_P(UnionsOfTables, GLConnLists, testing::Combine(testing::ValuesIn(kUnions), testing::Bool()),
                         nameOfList);

TEST(GLConnListsCoverage, FewConfigurationsAreLeftToGeometry) {
    auto const openOnes = [](unsigned int config) {
        PlainBuilder const plain(config);
        unsigned int count = 0;
        for (unsigned int configuration = 0; configuration < 255; ++configuration) {
            count += plain.build(configuration, /*recomputeNormals=*/false).isOpen ? 1U : 0U;
        }
        return count;
    };
    EXPECT_EQ(openOnes(Neighborhood::N6), 48U);
    EXPECT_EQ(openOnes(Neighborhood::N26), 48U);
    EXPECT_EQ(openOnes(Neighborhood::N14I), 24U);
}

} // namespace
