// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/GLConnAccess.h"
#include "support/SystemName.h"
#include "support/TextCapture.h"
#include "support/oracle/PlainBuilder.h"

#include <gtest/gtest.h>

#include <iostream>
#include <optional>
#include <stdexcept>

// The 256 configurations do not reach every branch of the cases. With one to three links left out of a pair of
// components, starts move, halves change their sizes and rings lose their first edge.

namespace {

using namespace tamo::test;

class GLConnReducedPairs : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    // Compares what both builders make of a pair, and counts the polygons. Pairs of too few links are passed over.
    void compare(unsigned int fg, unsigned int bg, std::vector<unsigned int> const& missingLinks) {
        std::optional<PlainCell> cell;
        try {
            cell = _plain.buildWithout(fg, bg, missingLinks);
        } catch (std::exception const&) {
            return;
        }
        if (cell->isOpen) {
            return;
        }
        GLObject object;
        dispatchWithout(object, static_cast<unsigned char>(fg), static_cast<unsigned char>(bg), missingLinks);
        ASSERT_EQ(object.size(), cell->polygons.size());
        for (unsigned int i = 0; i < object.size(); ++i) {
            ASSERT_TRUE(samePolygon(*object[i], cell->polygons[i]));
            ++_polygons;
        }
    }

    // Leaves out every set of one to three links.
    void compareWithFewer(unsigned int fg, unsigned int bg) {
        std::vector<unsigned int> const links = linksBetween(fg, bg);
        for (unsigned int choice = 1; choice < 1U << links.size() && !HasFatalFailure(); ++choice) {
            std::vector<unsigned int> missingLinks;
            for (std::size_t i = 0; i < links.size(); ++i) {
                if ((choice >> i & 1U) != 0) {
                    missingLinks.push_back(links[i]);
                }
            }
            if (missingLinks.size() <= 3) {
                SCOPED_TRACE(choice);
                compare(fg, bg, missingLinks);
            }
        }
    }

    void dispatchWithout(GLObject& object, unsigned char fg, unsigned char bg,
                         std::vector<unsigned int> const& missingLinks) {
        GLPolygonDesc desc(GLConnAccess::midpoints(_conn), 28);
        GLConnAccess::collect(_conn, desc, fg, bg);
        for (unsigned int const link : missingLinks) {
            desc.removeVertex(static_cast<unsigned char>(link));
        }
        ConnArguments arguments;
        arguments.fg = fg;
        arguments.bg = bg;
        for (unsigned int k = 0; k < desc.count; ++k) {
            arguments.info |= _conn.getVInfo(desc.conn[k]);
        }
        GLConnAccess::dispatch(_conn, object, desc, arguments);
    }

    // Returns the numbers of the links between two components.
    std::vector<unsigned int> linksBetween(unsigned int fg, unsigned int bg) {
        GLPolygonDesc desc(GLConnAccess::midpoints(_conn), 28);
        GLConnAccess::collect(_conn, desc, static_cast<unsigned char>(fg), static_cast<unsigned char>(bg));
        return {desc.conn.begin(), desc.conn.begin() + desc.count};
    }

    GLConn _conn{GetParam()};
    PlainBuilder _plain{GetParam()};
    unsigned int _polygons = 0;
};

TEST_P(GLConnReducedPairs, EqualTheSlowBuilderBitForBit) {
    TextCapture const errors(std::cerr);
    for (unsigned int configuration = 1; configuration < 255 && !HasFatalFailure(); ++configuration) {
        for (unsigned int const fg : plainComponents(configuration, _plain.adjacency().foreground)) {
            for (unsigned int const bg : plainComponents(255 - configuration, _plain.adjacency().background)) {
                SCOPED_TRACE(configuration);
                compareWithFewer(fg, bg);
            }
        }
    }
    EXPECT_GT(_polygons, 2000U);
}

INSTANTIATE_TEST_SUITE_P(Systems, GLConnReducedPairs,
                         testing::Values(Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I), nameOfSystem);

} // namespace
