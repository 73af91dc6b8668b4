// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/objects/GLObjectList.h>

#include "support/oracle/PlainPolygon.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <type_traits>
#include <vector>

static_assert(sizeof(GLObjectList) == sizeof(std::vector<GLObject*>));
static_assert(std::is_base_of_v<Vb::PointerContainer<std::vector<GLObject*>>, GLObjectList>);

namespace {

using tamo::test::PlainPolygon;

// Holds objects of 0, 1, 2, ... random polygons.
std::unique_ptr<GLObjectList> randomList(unsigned int objects) {
    std::mt19937 random(objects);
    auto list = std::make_unique<GLObjectList>();
    for (unsigned int i = 0; i < objects; ++i) {
        auto* const object = new GLObject();
        list->push_back(object);
        for (unsigned int j = 0; j < i; ++j) {
            object->push_back(new GLPolygon(tamo::test::libraryOf(tamo::test::randomPolygon(random, 3 + j, false))));
        }
    }
    return list;
}

void expectScaled(GLObjectList const& copy, std::vector<std::vector<PlainPolygon>> const& source, float scale) {
    ASSERT_EQ(copy.size(), source.size());
    for (unsigned int i = 0; i < copy.size(); ++i) {
        ASSERT_EQ(copy[i]->size(), source[i].size());
        for (unsigned int j = 0; j < copy[i]->size(); ++j) {
            PlainPolygon expected = source[i][j];
            for (tamo::test::PlainVertex& vertex : expected.vertices) {
                vertex.position = tamo::test::times(vertex.position, scale);
            }
            EXPECT_TRUE(samePolygon(*(*copy[i])[j], expected)) << "object " << i << ", polygon " << j;
        }
    }
}

std::vector<std::vector<PlainPolygon>> plainOf(GLObjectList const& list) {
    std::vector<std::vector<PlainPolygon>> plain;
    for (GLObject const* object : list) {
        plain.emplace_back();
        for (GLPolygon const* polygon : *object) {
            plain.back().push_back(tamo::test::plainOf(*polygon));
        }
    }
    return plain;
}

TEST(GLObjectList, StartsWithoutSlots) { EXPECT_EQ(GLObjectList().size(), 0U); }

TEST(GLObjectList, CopyOfAnEmptyListIsEmptyAtAnyScale) {
    GLObjectList const empty;
    EXPECT_EQ(GLObjectList(empty).size(), 0U);
    EXPECT_EQ(GLObjectList(empty, 0.0F).size(), 0U);
    EXPECT_EQ(GLObjectList(empty, 7.0F).size(), 0U);
}

TEST(GLObjectList, CopyIsDeepEqualAndInOrder) {
    auto list = randomList(6);
    std::vector<std::vector<PlainPolygon>> const before = plainOf(*list);
    auto copy = std::make_unique<GLObjectList>(*list);
    expectScaled(*copy, before, 1.0F);
    for (unsigned int i = 0; i < 6; ++i) {
        EXPECT_NE((*copy)[i], (*list)[i]);
    }
    copy.reset();
    expectScaled(*list, before, 1.0F);
    copy = std::make_unique<GLObjectList>(*list);
    list.reset();
    expectScaled(*copy, before, 1.0F);
}

TEST(GLObjectList, CopyMultipliesEveryPositionByTheScale) {
    auto const list = randomList(5);
    for (float const scale : {2.0F, 3.0F, 0.7F, 0.0F, -1.0F}) {
        expectScaled(GLObjectList(*list, scale), plainOf(*list), scale);
    }
}

TEST(GLObjectList, AssignmentSharesTheObjects) {
    auto const list = randomList(3);
    GLObjectList other;
    EXPECT_EQ(&(other = *list), &other);
    ASSERT_EQ(other.size(), 3U);
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(other[i], (*list)[i]);
        other[i] = nullptr;
    }
}

TEST(GLObjectList, AssignedToItselfKeepsItsObjects) {
    auto const list = randomList(4);
    std::vector<std::vector<PlainPolygon>> const before = plainOf(*list);
    GLObjectList const& same = *list;
    EXPECT_EQ(&(*list = same), list.get());
    expectScaled(*list, before, 1.0F);
}

TEST(GLObjectList, ClearAndResizeGiveNullSlots) {
    auto const list = randomList(4);
    list->clear();
    list->resize(256);
    ASSERT_EQ(list->size(), 256U);
    for (GLObject const* slot : *list) {
        EXPECT_EQ(slot, nullptr);
    }
}

} // namespace
