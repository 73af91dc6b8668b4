// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/connectivity/GLTesselation.h>

#include "support/StreamCapture.h"
#include "support/memory/FailingNew.h"

#include <gtest/gtest.h>

#include <iostream>
#include <new>
#include <optional>

namespace {

using tamo::test::FailingNew;
using tamo::test::StreamCapture;

constexpr char const* kMessage = "GLTesselations alloc error\n";

TEST(GLTesselationAllocation, FailedResizeLeavesNothingAndWritesOneLine) {
    std::size_t failures = 0;
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        GLTesselation tesselation(3);
        std::ptrdiff_t const before = FailingNew::liveBlocks();
        StreamCapture const errors(std::cerr);
        bool isResized = false;
        {
            FailingNew const guard(n);
            isResized = tesselation.resize(6);
            hasFailed = FailingNew::hasFailed();
        }
        EXPECT_EQ(isResized, !hasFailed) << n;
        EXPECT_EQ(tesselation.size(), hasFailed ? 0 : 6) << n;
        EXPECT_EQ(errors.text(), hasFailed ? kMessage : "") << n;
        // Three placeholders and their array are gone.
        EXPECT_EQ(FailingNew::liveBlocks() - before, hasFailed ? -4 : 3) << n;
        failures += hasFailed ? 1 : 0;
    }
    EXPECT_EQ(failures, 7U) << "the array and six corner lists";
}

TEST(GLTesselationAllocation, FailedConstructionIsEmptyAndWritesOneLine) {
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        StreamCapture const errors(std::cerr);
        std::optional<GLTesselation> tesselation;
        {
            FailingNew const guard(n);
            tesselation.emplace(4U);
            hasFailed = FailingNew::hasFailed();
        }
        EXPECT_EQ(tesselation->size(), hasFailed ? 0 : 4) << n;
        EXPECT_EQ(errors.text(), hasFailed ? kMessage : "") << n;
        tesselation.reset();
        EXPECT_EQ(FailingNew::liveBlocks(), before) << n;
    }
}

TEST(GLTesselationAllocation, CountThatNoArrayHoldsIsAnAllocationFailure) {
    GLTesselation tesselation(2);
    StreamCapture const errors(std::cerr);
    EXPECT_FALSE(tesselation.resize(~0U));
    EXPECT_EQ(tesselation.size(), 0);
    EXPECT_EQ(errors.text(), kMessage);
}

TEST(GLTesselationAllocation, FailedCopyOrStoreKeepsTheTarget) {
    GLTesselation source(2);
    GLTesselation target(1);
    target.setPolyh(0, {1, 2, 3, 4});
    GLPolyh const large{0, 1, 2, 3, 4, 5, 6, 7};
    source.setPolyh(1, large);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    for (std::size_t n = 1; n <= 4; ++n) {
        FailingNew const guard(n);
        EXPECT_THROW(target = source, std::bad_alloc) << n;
    }
    {
        FailingNew const guard(1);
        EXPECT_THROW(target.setPolyh(0, large), std::bad_alloc);
    }
    EXPECT_EQ(FailingNew::liveBlocks(), before);
    EXPECT_EQ(target.size(), 1);
    EXPECT_EQ(target.getPolyh(0), (GLPolyh{1, 2, 3, 4}));
}

} // namespace
