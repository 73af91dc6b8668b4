// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/StreamCapture.h"
#include "support/memory/FailingNew.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <new>

namespace {

using tamo::test::FailingNew;
using tamo::test::StreamCapture;

TEST(GLObjectListForNeighborhoodAllocation, FailureOfABuilderPassesThrough) {
    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N26, list);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    for (std::size_t const failing : {1U, 20U, 300U}) {
        FailingNew const guard(failing);
        EXPECT_THROW(GLObjectListForNeighborhood(Neighborhood::N26, list), std::bad_alloc);
    }
    GLObjectListForNeighborhood(Neighborhood::N26, list);
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

TEST(GLObjectListForNeighborhoodAllocation, ACellThatCannotBeSubdividedLeavesAListOfEmptyObjects) {
    // The first failures hit the corner lists that the builder starts from; they pass through as exceptions.
    unsigned int emptyLists = 0;
    for (std::size_t n = 1; n <= 40; ++n) {
        StreamCapture const errors(std::cerr);
        GLObjectList list;
        bool isThrown = false;
        {
            FailingNew const guard(n);
            try {
                GLObjectListForNeighborhood(Neighborhood::N14II, list);
            } catch (std::bad_alloc const&) {
                isThrown = true;
            }
        }
        if (isThrown) {
            EXPECT_EQ(errors.text(), "") << n;
            continue;
        }
        ++emptyLists;
        EXPECT_EQ(errors.text(), "GLTesselations alloc error\n") << n;
        EXPECT_EQ(list.size(), 256U) << n;
        EXPECT_TRUE(std::all_of(list.begin(), list.end(), [](GLObject const* o) { return o->size() == 0; })) << n;
    }
    EXPECT_EQ(emptyLists, 7U) << "the array and six corner lists";
}

} // namespace
