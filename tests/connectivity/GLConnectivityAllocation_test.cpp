// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/connectivity/GLConnectivity.h>

#include "support/ConnectivityPrivates.h"
#include "support/Digest.h"
#include "support/memory/FailingNew.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

namespace {

using tamo::test::FailingNew;

GLTesselation sixTetrahedra() {
    GLTesselation tesselation(6);
    tesselation.setPolyh(0, {0, 1, 3, 5});
    tesselation.setPolyh(1, {0, 2, 3, 7});
    tesselation.setPolyh(2, {0, 2, 4, 7});
    tesselation.setPolyh(3, {0, 3, 5, 7});
    tesselation.setPolyh(4, {0, 4, 5, 7});
    tesselation.setPolyh(5, {2, 4, 6, 7});
    return tesselation;
}

// Lets every `stride`-th allocation of `wrapLocal` fail and expects that nothing but the exception is left of it.
void expectCleanFailures(bool reduce, std::size_t stride) {
    GLTesselation const tesselation = sixTetrahedra();
    std::size_t total = 0;
    {
        GLObjectList list;
        FailingNew const guard;
        GLConnectivity().wrapLocal(tesselation, &list, reduce);
        total = FailingNew::allocations();
    }
    EXPECT_GT(total, 1000U);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    for (std::size_t n = 1; n <= total; n += stride) {
        {
            GLObjectList list;
            FailingNew const guard(n);
            EXPECT_THROW(GLConnectivity().wrapLocal(tesselation, &list, reduce), std::bad_alloc) << n;
        }
        ASSERT_EQ(FailingNew::liveBlocks(), before) << n;
    }
}

TEST(GLConnectivityAllocation, EveryFailureWhileCuttingIsPassedOnWithoutALeak) {
    expectCleanFailures(/*reduce=*/false, /*stride=*/1);
}

TEST(GLConnectivityAllocation, FailuresWhileReducingArePassedOnWithoutALeak) {
    // A prime stride; the merging steps themselves are taken allocation by allocation below.
    expectCleanFailures(/*reduce=*/true, /*stride=*/67);
}

std::uint64_t digestOf(GLObject const& object) {
    tamo::test::Digest digest;
    for (GLPolygon const* polygon : object) {
        digest.add(*polygon);
    }
    return digest.value();
}

TEST(GLConnectivityAllocation, FailureLeavesTheFinishedObjectsAlone) {
    GLTesselation const tesselation = sixTetrahedra();
    GLObjectList whole;
    std::size_t total = 0;
    {
        FailingNew const counter;
        GLConnectivity().wrapLocal(tesselation, &whole, /*reduce=*/true);
        total = FailingNew::allocations();
    }
    unsigned int longest = 0;
    for (std::size_t n = 2; n <= total; n += 37) {
        GLObjectList list(whole);
        {
            FailingNew const guard(n);
            EXPECT_THROW(GLConnectivity().wrapLocal(tesselation, &list, /*reduce=*/true), std::bad_alloc) << n;
        }
        ASSERT_LT(list.size(), 256U) << n;
        for (unsigned int k = 0; k < list.size(); ++k) {
            EXPECT_EQ(digestOf(*list[k]), digestOf(*whole[k])) << n << ", configuration " << k;
        }
        longest = std::max(longest, list.size());
    }
    EXPECT_GT(longest, 100U);
}

using Points = std::vector<GLVec3f>;

std::unique_ptr<GLPolygon> polygonOf(Points const& positions) {
    auto polygon = std::make_unique<GLPolygon>(static_cast<unsigned int>(positions.size()));
    for (unsigned int i = 0; i < polygon->size(); ++i) {
        polygon->vertex(i) = positions[i];
    }
    polygon->setNormals();
    return polygon;
}

std::unique_ptr<GLObject> objectOf(std::vector<Points> const& polygons) {
    auto object = std::make_unique<GLObject>();
    for (Points const& positions : polygons) {
        object->push_back(polygonOf(positions).release());
    }
    return object;
}

std::vector<Points> const kTwoSquares = {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
                                         {{5, 0, 0}, {6, 0, 0}, {5, 1, 0}},
                                         {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}},
                                         {{6, 0, 0}, {6, 1, 0}, {5, 1, 0}}};

TEST(GLConnectivityAllocation, FailedCombinationLeaksNothing) {
    auto const p = polygonOf(kTwoSquares[0]);
    auto const q = polygonOf(kTwoSquares[2]);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        {
            FailingNew const guard(n);
            try {
                EXPECT_NE(tamo::test::combinePolygons(*p, *q, 3, true), nullptr);
            } catch (std::bad_alloc const&) {
                EXPECT_TRUE(FailingNew::hasFailed());
            }
            hasFailed = FailingNew::hasFailed();
        }
        EXPECT_EQ(FailingNew::liveBlocks(), before) << n;
    }
}

TEST(GLConnectivityAllocation, FailedReductionKeepsAWholeObject) {
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        auto object = objectOf(kTwoSquares);
        {
            FailingNew const guard(n);
            try {
                EXPECT_EQ(tamo::test::reducePolygons(*object, 3, true), 2U);
            } catch (std::bad_alloc const&) {
                EXPECT_TRUE(FailingNew::hasFailed());
            }
            hasFailed = FailingNew::hasFailed();
        }
        unsigned int corners = 0;
        for (GLPolygon const* polygon : *object) {
            corners += polygon->size() == 3 ? 3 : 6;
        }
        EXPECT_EQ(corners, 12U) << n;
        object.reset();
        EXPECT_EQ(FailingNew::liveBlocks(), before) << n;
    }
}

TEST(GLConnectivityAllocation, FailedFanKeepsTheObject) {
    GLVec3f const centre{0.5F, 0.5F, 0.5F};
    std::vector<Points> const ring = {
        {centre, {0, 0, 0}, {1, 0, 0}}, {centre, {1, 0, 0}, {0, 1, 0}}, {centre, {0, 1, 0}, {0, 0, 0}}};
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        auto object = objectOf(ring);
        std::ptrdiff_t const before = FailingNew::liveBlocks();
        {
            FailingNew const guard(n);
            try {
                EXPECT_EQ(tamo::test::makeTriangleFan(*object), 4U);
            } catch (std::bad_alloc const&) {
                EXPECT_TRUE(FailingNew::hasFailed());
            }
            hasFailed = FailingNew::hasFailed();
        }
        EXPECT_EQ(object->size(), hasFailed ? 3U : 1U) << n;
        // Two blocks a polygon; the fan replaces three by one.
        EXPECT_EQ(FailingNew::liveBlocks() - before, hasFailed ? 0 : -4) << n;
    }
}

} // namespace
