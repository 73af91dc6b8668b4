// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/StreamCapture.h"
#include "support/memory/FailingNew.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <iostream>

namespace {

using tamo::test::FailingNew;
using tamo::test::StreamCapture;

TEST(GLObjectListForNeighborhoodAllocation, ACellThatCannotBeSubdividedLeavesAListOfEmptyObjects) {
    GLObjectList list;
    StreamCapture const messages(std::cerr);
    {
        FailingNew const failing(1);
        GLObjectListForNeighborhood(Neighborhood::N14II, list);
        EXPECT_TRUE(FailingNew::hasFailed());
    }
    EXPECT_EQ(messages.text(), "GLTesselations alloc error\n");
    ASSERT_EQ(list.size(), 256U);
    for (GLObject const* object : list) {
        EXPECT_EQ(object->size(), 0U);
    }
}

} // namespace
