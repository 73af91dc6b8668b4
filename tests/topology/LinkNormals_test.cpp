// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/DrawnSurface.h"

#include <tamo/conn/GLConn.h>

#include <gtest/gtest.h>

namespace {

using namespace tamo::test;

TEST(LinkNormals, NormalsAreNumbersOfUnitLength) {
    for (auto const config : {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I}) {
        GLObjectList list;
        GLConn().wrapLocal(config, &list, /*recomputeNormals=*/false);
        EXPECT_EQ(configurationsWithABadNormal(list), std::vector<unsigned int>());
    }
}

// Returns whether a vertex's normal leads along a link from a foreground to a background corner.
bool leadsOutward(unsigned int configuration, float const* record) {
    unsigned int ahead = 0;
    unsigned int behind = 0;
    for (unsigned int axis = 0; axis < 3; ++axis) {
        float const halfLink = record[axis] > 0 ? 0.5F : record[axis] < 0 ? -0.5F : 0.0F;
        ahead |= record[3 + axis] + halfLink > 0.75F ? 1U << axis : 0U;
        behind |= record[3 + axis] - halfLink > 0.75F ? 1U << axis : 0U;
    }
    return (configuration >> ahead & 1U) == 0 && (configuration >> behind & 1U) == 1;
}

// The tube around 0-7 repeats its first vertex, removes the original and repeats the next: both repetitions share one
// normal slot, so that the older takes over the newer one's link.
TEST(LinkNormals, NormalsLeadOutwardButForTwoRepeatedVertices) {
    for (auto const config : {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I}) {
        GLObjectList list;
        GLConn().wrapLocal(config, &list, /*recomputeNormals=*/false);
        std::vector<unsigned int> others;
        for (unsigned int configuration = 1; configuration < 255; ++configuration) {
            for (GLPolygon const* polygon : *list[configuration]) {
                for (unsigned int i = 0; i < polygon->size(); ++i) {
                    if (!leadsOutward(configuration, polygon->vData(i))) {
                        others.push_back(configuration);
                    }
                }
            }
        }
        std::vector<unsigned int> const expected =
            config == Neighborhood::N14I ? std::vector<unsigned int>{0x7e, 0x81} : std::vector<unsigned int>();
        EXPECT_EQ(others, expected) << systemName(config);
    }
}

} // namespace
