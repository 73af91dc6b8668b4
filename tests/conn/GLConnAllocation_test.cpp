// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/Digest.h"
#include "support/SystemName.h"
#include "support/memory/FailingNew.h"

#include <tamo/conn/GLConn.h>

#include <gtest/gtest.h>

#include <new>

namespace {

using namespace tamo::test;

std::uint64_t digestOf(GLObjectList const& list) {
    Digest digest;
    digest.add(list);
    return digest.value();
}

// Runs `call` with its first, second, ... allocation failing, until there is none left to fail. Returns their number.
template <typename Call> std::size_t failEachAllocation(Call const& call) {
    for (std::size_t failing = 1;; ++failing) {
        bool hasFailed = false;
        bool hasThrown = false;
        {
            FailingNew const guard(failing);
            try {
                call();
            } catch (std::bad_alloc const&) {
                hasThrown = true;
            }
            hasFailed = FailingNew::hasFailed();
        }
        EXPECT_EQ(hasThrown, hasFailed) << failing;
        if (!hasFailed || testing::Test::HasFailure()) {
            return failing - 1;
        }
    }
}

class GLConnAllocation : public testing::TestWithParam<Neighborhood::NHConfig> {};

TEST_P(GLConnAllocation, FailureAnywhereInABuildLeaksNothing) {
    GLConn conn;
    // Streams and lists of the first run stay allocated.
    {
        GLObjectList list;
        conn.wrapLocal(GetParam(), &list, true);
    }
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    std::size_t const allocations = failEachAllocation([&] {
        GLObjectList list;
        conn.wrapLocal(GetParam(), &list, true);
    });
    EXPECT_GT(allocations, 700U);
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

TEST_P(GLConnAllocation, ListAndBuilderAreUsableAfterAFailure) {
    GLConn conn;
    GLObjectList expected;
    conn.wrapLocal(GetParam(), &expected, true);
    GLObjectList list;
    for (std::size_t const failing : {1U, 2U, 3U, 10U, 100U, 500U}) {
        {
            FailingNew const guard(failing);
            EXPECT_THROW(conn.wrapLocal(GetParam(), &list, true), std::bad_alloc);
        }
        // A slot that is there holds an object: the list can be read and cleared.
        for (GLObject const* object : list) {
            EXPECT_NE(object, nullptr);
        }
        conn.wrapLocal(GetParam(), &list, true);
        EXPECT_EQ(digestOf(list), digestOf(expected));
    }
}

std::uint64_t digestOf(GLObject const& object) {
    Digest digest;
    for (GLPolygon const* polygon : object) {
        digest.add(*polygon);
    }
    return digest.value();
}

TEST_P(GLConnAllocation, FailureLeavesFinishedObjectsAndTheOneInTheMaking) {
    GLConn conn;
    GLObjectList whole;
    conn.wrapLocal(GetParam(), &whole, true);
    unsigned int unfinished = 0;
    for (std::size_t failing = 30; failing < 700; ++failing) {
        GLObjectList list;
        {
            FailingNew const guard(failing);
            EXPECT_THROW(conn.wrapLocal(GetParam(), &list, true), std::bad_alloc) << failing;
        }
        ASSERT_LT(list.size(), 256U);
        for (unsigned int k = 0; k + 1 < list.size(); ++k) {
            EXPECT_EQ(digestOf(*list[k]), digestOf(*whole[k])) << failing << ", configuration " << k;
        }
        unsigned int const last = list.size() - 1;
        unfinished += list.size() > 0 && digestOf(*list[last]) != digestOf(*whole[last]) ? 1U : 0U;
    }
    EXPECT_GT(unfinished, 100U);
}

INSTANTIATE_TEST_SUITE_P(Systems, GLConnAllocation,
                         testing::Values(Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I), nameOfSystem);

TEST(GLConnSetUp, FailureLeavesTheListAsItWas) {
    // A copy has room for the links of its source alone; set up for more of them, its lists have to grow.
    GLConn const source(Neighborhood::N6);
    std::size_t setUp = 0;
    {
        GLConn conn(source);
        FailingNew const counter;
        conn.setupConn(Neighborhood::N26);
        setUp = FailingNew::allocations();
    }
    EXPECT_GT(setUp, 0U);
    for (std::size_t failing = 1; failing <= setUp; ++failing) {
        GLConn conn(source);
        GLObjectList list;
        list.push_back(nullptr);
        FailingNew const guard(failing);
        EXPECT_THROW(conn.wrapLocal(Neighborhood::N26, &list, true), std::bad_alloc) << failing;
        EXPECT_EQ(list.size(), 1U) << failing;
    }
}

TEST(GLConnConstruction, FailureLeaksNothing) {
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    EXPECT_GT(failEachAllocation([] { GLConn const conn(Neighborhood::N14I); }), 8U);
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

TEST(GLConnConstruction, FailedCopyLeaksNothing) {
    GLConn const source(Neighborhood::N26);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    EXPECT_GT(failEachAllocation([&source] { EXPECT_EQ(GLConn(source).getFgConnSize(), 28U); }), 8U);
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

} // namespace
