// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/neighborhood/Neighborhood.h>

#include "support/memory/FailingNew.h"

#include <gtest/gtest.h>

#include <new>
#include <optional>

namespace {

using tamo::test::FailingNew;

TEST(NeighborhoodAllocation, FailedConstructionOrCopyLeaksNothing) {
    Neighborhood source;
    source.setupNeighborhood(Neighborhood::N14II);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        std::optional<Neighborhood> fresh;
        std::optional<Neighborhood> copy;
        FailingNew const guard(n);
        try {
            fresh.emplace();
            copy.emplace(source);
        } catch (std::bad_alloc const&) {
            EXPECT_FALSE(copy.has_value());
        }
        hasFailed = FailingNew::hasFailed();
        fresh.reset();
        copy.reset();
        EXPECT_EQ(FailingNew::liveBlocks(), before);
    }
}

TEST(NeighborhoodAllocation, SettingUpASystemAllocatesNothing) {
    Neighborhood n;
    FailingNew const guard(1);
    for (Neighborhood::NHConfig const config : {Neighborhood::N26, Neighborhood::N14I, Neighborhood::N8}) {
        EXPECT_TRUE(n.setupNeighborhood(config));
    }
    EXPECT_EQ(FailingNew::allocations(), 0U);
}

} // namespace
