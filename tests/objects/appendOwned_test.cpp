// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../../src/objects/appendOwned.h"

#include <tamo/objects/GLObjectList.h>

#include "support/memory/FailingNew.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <utility>

namespace {

using tamo::test::FailingNew;

TEST(AppendOwned, PutsTheObjectLastAndReturnsIt) {
    GLObject object;
    object.push_back(new GLPolygon(3));
    GLPolygon& polygon = tamo::appendOwned(object, std::make_unique<GLPolygon>(5));
    ASSERT_EQ(object.size(), 2U);
    EXPECT_EQ(object[1], &polygon);
    EXPECT_EQ(polygon.size(), 5U);
}

TEST(AppendOwned, FailedSlotDestroysTheObjectAndKeepsTheContainer) {
    GLObject object;
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    auto polygon = std::make_unique<GLPolygon>(5);
    {
        FailingNew const guard(1);
        EXPECT_THROW(tamo::appendOwned(object, std::move(polygon)), std::bad_alloc);
    }
    EXPECT_EQ(object.size(), 0U);
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

} // namespace
