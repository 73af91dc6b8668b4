// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/objects/GLObjectList.h>

#include "support/oracle/PlainPolygon.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

int deletedPolygons = 0;

// Counts deletions, so that only a virtual destructor can have been at work.
class CountedPolygon : public GLPolygon {
  public:
    explicit CountedPolygon(unsigned int n) : GLPolygon(n) {}
    CountedPolygon(CountedPolygon const&) = delete;
    CountedPolygon& operator=(CountedPolygon const&) = delete;
    ~CountedPolygon() override { ++deletedPolygons; }
};

static_assert(sizeof(GLObject) == sizeof(std::vector<GLPolygon*>));
static_assert(std::is_base_of_v<Vb::PointerContainer<std::vector<GLPolygon*>>, GLObject>);

// Holds polygons of 3, 4, 5, ... vertices.
std::unique_ptr<GLObject> objectOf(unsigned int polygons) {
    deletedPolygons = 0;
    auto object = std::make_unique<GLObject>();
    for (unsigned int i = 0; i < polygons; ++i) {
        object->push_back(new CountedPolygon(3 + i));
    }
    return object;
}

std::vector<GLPolygon*> pointersOf(GLObject const& object) { return {object.begin(), object.end()}; }

TEST(GLObject, StartsEmptyAndDeletesItsPolygonsThroughTheirDestructor) {
    EXPECT_EQ(GLObject().size(), 0U);
    auto object = objectOf(3);
    object.reset();
    EXPECT_EQ(deletedPolygons, 3);
}

TEST(GLObject, ScalingCopyIsDeepInOrderAndBlack) {
    std::mt19937 random(5);
    GLObject object;
    for (unsigned int n : {4U, 3U, 7U}) {
        object.push_back(new GLPolygon(tamo::test::libraryOf(tamo::test::randomPolygon(random, n, false))));
        object[object.size() - 1]->color() = GLVec3f{1, 0, 0};
        object[object.size() - 1]->setProperties(n == 3, n == 4, n == 7, n != 7);
    }
    for (float const scale : {1.0F, 3.0F, 0.1F}) {
        GLObject const copy(object, scale);
        ASSERT_EQ(copy.size(), object.size());
        for (unsigned int i = 0; i < copy.size(); ++i) {
            tamo::test::PlainPolygon expected = tamo::test::plainOf(*object[i]);
            expected.color = {0, 0, 0};
            for (tamo::test::PlainVertex& vertex : expected.vertices) {
                vertex.position = tamo::test::times(vertex.position, scale);
            }
            EXPECT_TRUE(samePolygon(*copy[i], expected));
            EXPECT_NE(copy[i], object[i]);
        }
    }
}

TEST(GLObject, ScalingCopyOfAnEmptyObjectIsEmpty) { EXPECT_EQ(GLObject(GLObject(), 2.0F).size(), 0U); }

TEST(GLObject, ScalingCopyKeepsNullSlotsInTheirPlaces) {
    GLObject object;
    object.push_back(nullptr);
    object.push_back(new GLPolygon(4));
    object.push_back(nullptr);
    GLObject const copy(object, 2.0F);
    ASSERT_EQ(copy.size(), 3U);
    EXPECT_EQ(copy[0], nullptr);
    EXPECT_EQ(copy[1]->size(), 4U);
    EXPECT_EQ(copy[2], nullptr);
}

TEST(GLObject, AssignedToItselfKeepsItsPolygons) {
    auto object = objectOf(3);
    std::vector<GLPolygon*> const expected = pointersOf(*object);
    GLObject const& same = *object;
    *object = same;
    EXPECT_EQ(pointersOf(*object), expected);
    EXPECT_EQ(deletedPolygons, 0);
}

TEST(GLObject, ReplaceKeepsThePlaceAndDeletesTheOld) {
    for (unsigned int i = 0; i < 3; ++i) {
        auto object = objectOf(3);
        std::vector<GLPolygon*> expected = pointersOf(*object);
        auto* const replacement = new CountedPolygon(9);
        EXPECT_TRUE(object->replace(expected[i], replacement));
        expected[i] = replacement;
        EXPECT_EQ(pointersOf(*object), expected);
        EXPECT_EQ(deletedPolygons, 1);
    }
}

TEST(GLObject, ReplaceOfAStrangerChangesNothing) {
    auto object = objectOf(2);
    std::vector<GLPolygon*> const expected = pointersOf(*object);
    GLPolygon stranger;
    GLPolygon replacement;
    EXPECT_FALSE(object->replace(&stranger, &replacement));
    EXPECT_EQ(pointersOf(*object), expected);
    EXPECT_EQ(deletedPolygons, 0);
    EXPECT_FALSE(GLObject().replace(&stranger, &replacement));
}

TEST(GLObject, ReplaceOfAPolygonByItselfKeepsIt) {
    auto object = objectOf(3);
    std::vector<GLPolygon*> const expected = pointersOf(*object);
    EXPECT_TRUE(object->replace(expected[1], expected[1]));
    EXPECT_EQ(pointersOf(*object), expected);
    EXPECT_EQ(deletedPolygons, 0);
    EXPECT_EQ(expected[1]->size(), 4U);
}

TEST(GLObject, ReplaceByNullEmptiesTheSlotAndOfNullFillsTheFirst) {
    auto object = objectOf(3);
    std::vector<GLPolygon*> expected = pointersOf(*object);
    EXPECT_FALSE(object->replace(nullptr, nullptr));
    EXPECT_TRUE(object->replace(expected[1], nullptr));
    EXPECT_TRUE(object->replace(expected[2], nullptr));
    EXPECT_EQ(pointersOf(*object), (std::vector<GLPolygon*>{expected[0], nullptr, nullptr}));
    EXPECT_EQ(deletedPolygons, 2);
    auto* const replacement = new CountedPolygon(9);
    EXPECT_TRUE(object->replace(nullptr, replacement));
    EXPECT_EQ(pointersOf(*object), (std::vector<GLPolygon*>{expected[0], replacement, nullptr}));
    EXPECT_EQ(deletedPolygons, 2);
}

TEST(GLObject, ReplaceTakesTheFirstOfEqualSlots) {
    GLObject object;
    auto* const twice = new GLPolygon(3);
    auto* const replacement = new GLPolygon(4);
    object.push_back(twice);
    object.push_back(twice);
    EXPECT_TRUE(object.replace(twice, replacement));
    EXPECT_EQ(object[0], replacement);
    EXPECT_NE(object[1], replacement);
    object[1] = nullptr;
}

TEST(GLObject, EraseReturnsWhetherAPolygonMovedIntoThePlace) {
    for (unsigned int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        auto object = objectOf(4);
        std::vector<GLPolygon*> expected = pointersOf(*object);
        EXPECT_EQ(object->erase(expected[i]), i != 3);
        expected.erase(expected.begin() + static_cast<int>(i));
        EXPECT_EQ(pointersOf(*object), expected);
        EXPECT_EQ(deletedPolygons, 1);
    }
}

TEST(GLObject, EraseOfTheOnlyPolygonLeavesNone) {
    auto object = objectOf(1);
    EXPECT_FALSE(object->erase((*object)[0]));
    EXPECT_EQ(object->size(), 0U);
    EXPECT_EQ(deletedPolygons, 1);
}

TEST(GLObject, EraseByPlaceStaysAvailable) {
    auto object = objectOf(3);
    GLPolygon* const last = (*object)[2];
    auto const first = object->erase(object->begin(), object->begin() + 2);
    EXPECT_EQ(first, object->begin());
    ASSERT_EQ(object->size(), 1U);
    EXPECT_EQ((*object)[0], last);
    auto const place = object->erase(object->begin());
    EXPECT_EQ(place, object->end());
    EXPECT_EQ(deletedPolygons, 3);
}

} // namespace
