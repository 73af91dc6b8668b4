// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/objects/GLObjectList.h>
#include <tamo/objects/PointerContainer.h>

#include "support/memory/FailingNew.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>

namespace {

using tamo::test::FailingNew;

TEST(PointerContainerAllocation, FailedResizeDeletesNothing) {
    GLObject object;
    for (unsigned int i = 0; i < 3; ++i) {
        object.push_back(new GLPolygon(3 + i));
    }
    std::ptrdiff_t const blocks = FailingNew::liveBlocks();
    {
        FailingNew const guard(1);
        EXPECT_THROW(object.resize(256), std::bad_alloc);
    }
    EXPECT_EQ(FailingNew::liveBlocks(), blocks);
    ASSERT_EQ(object.size(), 3U);
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(object[i]->size(), 3 + i);
    }
}

TEST(PointerContainerAllocation, FailedPushBackTakesNoOwnership) {
    GLObject object;
    auto polygon = std::make_unique<GLPolygon>(3);
    {
        FailingNew const guard(1);
        EXPECT_THROW(object.push_back(polygon.get()), std::bad_alloc);
    }
    EXPECT_EQ(object.size(), 0U);
    EXPECT_EQ(polygon->size(), 3U);
}

TEST(PointerContainerAllocation, WithoutSlotsAllocatesNothing) {
    FailingNew const guard(1);
    GLObject const object;
    GLObjectList list;
    list.resize(0);
    EXPECT_EQ(FailingNew::allocations(), 0U);
}

} // namespace
