// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/objects/GLObjectList.h>

#include "support/StreamCapture.h"
#include "support/memory/FailingNew.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <new>
#include <optional>
#include <vector>

namespace {

using tamo::test::FailingNew;
using tamo::test::StreamCapture;

constexpr char const* kMessage = "Polygon could not be created\n";

// Appends polygons of 3, 4, 5, ... vertices, so that the vertex counts of a copy tell which one is missing.
void fill(GLObject& object, unsigned int polygons) {
    for (unsigned int i = 0; i < polygons; ++i) {
        object.push_back(new GLPolygon(3 + i));
    }
}

std::vector<unsigned int> sizesOf(GLObject const& object) {
    std::vector<unsigned int> sizes;
    std::transform(object.begin(), object.end(), std::back_inserter(sizes), [](auto* p) { return p->size(); });
    return sizes;
}

// Returns the vertex counts that a copy of four polygons has left; each took two allocations, itself and its floats.
std::vector<unsigned int> sizesWithout(std::size_t missing) {
    std::vector<unsigned int> sizes = {3, 4, 5, 6};
    sizes.erase(sizes.begin() + static_cast<std::ptrdiff_t>(missing));
    return sizes;
}

TEST(GLObjectAllocation, PolygonThatFailsIsLeftOutWithOneLine) {
    GLObject object;
    fill(object, 4);
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        StreamCapture const errors(std::cerr);
        std::unique_ptr<GLObject> copy;
        try {
            FailingNew const guard(n);
            copy = std::make_unique<GLObject>(object, 2.0F);
        } catch (std::bad_alloc const&) {
            // The object itself or its slots; no polygon was tried yet.
            EXPECT_LE(n, 2U);
            EXPECT_EQ(errors.text(), "");
            EXPECT_EQ(FailingNew::liveBlocks(), before) << n;
            continue;
        }
        hasFailed = FailingNew::hasFailed();
        EXPECT_EQ(errors.text(), hasFailed ? kMessage : "") << n;
        EXPECT_EQ(errors.flushes(), hasFailed ? 1 : 0) << n;
        EXPECT_EQ(sizesOf(*copy), hasFailed ? sizesWithout((n - 3) / 2) : sizesOf(object)) << n;
        copy.reset();
        EXPECT_EQ(FailingNew::liveBlocks(), before) << n;
    }
}

// What one failing allocation left of a copied list.
struct Outcome {
    bool isThrown = false;
    unsigned int nullSlots = 0;
    unsigned int missingPolygons = 0;
};

Outcome copyWithFailure(GLObjectList const& list, std::size_t n) {
    Outcome outcome;
    std::optional<GLObjectList> copy;
    try {
        FailingNew const guard(n);
        copy.emplace(list, 2.0F);
    } catch (std::bad_alloc const&) {
        outcome.isThrown = true;
        return outcome;
    }
    EXPECT_EQ(copy->size(), list.size());
    for (unsigned int i = 0; i < copy->size(); ++i) {
        if ((*copy)[i] == nullptr) {
            ++outcome.nullSlots;
        } else {
            outcome.missingPolygons += list[i]->size() - (*copy)[i]->size();
        }
    }
    return outcome;
}

TEST(GLObjectListAllocation, ObjectThatFailsLeavesANullSlotAndNoLine) {
    GLObjectList list;
    for (unsigned int i = 0; i < 20; ++i) {
        list.push_back(new GLObject());
        fill(*list[i], i % 4);
    }
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    unsigned int nullSlots = 0;
    unsigned int lines = 0;
    bool hasFailed = true;
    for (std::size_t n = 1; hasFailed; ++n) {
        StreamCapture const errors(std::cerr);
        Outcome const outcome = copyWithFailure(list, n);
        hasFailed = FailingNew::hasFailed();
        EXPECT_EQ(outcome.isThrown, n == 1) << n;
        EXPECT_EQ(outcome.nullSlots + outcome.missingPolygons, hasFailed && n > 1 ? 1U : 0U) << n;
        EXPECT_EQ(errors.text(), outcome.missingPolygons == 1 ? kMessage : "") << n;
        EXPECT_EQ(FailingNew::liveBlocks(), before) << n;
        nullSlots += outcome.nullSlots;
        lines += outcome.missingPolygons;
    }
    // 20 objects, of which 15 have slots; 30 polygons.
    EXPECT_EQ(nullSlots, 35U);
    EXPECT_EQ(lines, 60U);
}

} // namespace
