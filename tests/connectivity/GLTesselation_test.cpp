// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/connectivity/GLTesselation.h>

#include "support/PrivateAccess.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace tamo::test {

struct ClearTag {
    using Type = void (GLTesselation::*)();
    friend Type access(ClearTag);
};
template struct PrivateAccess<ClearTag, &GLTesselation::clear>;

} // namespace tamo::test

static_assert(std::is_same_v<decltype(std::declval<GLTesselation const&>().size()), int>);
static_assert(std::is_convertible_v<unsigned int, GLTesselation>);

namespace {

GLPolyh const kPlaceholder{0, 0, 0, 0};

TEST(GLPolyh, IsATetrahedronPlaceholderByDefault) {
    GLPolyh const polyhedron;
    EXPECT_EQ(polyhedron.size(), 4U);
    EXPECT_EQ(polyhedron, kPlaceholder);
}

TEST(GLPolyh, CopiesItsCornersInOrder) {
    GLPolyh const polyhedron{7, 6, 5};
    GLPolyh copy = polyhedron;
    GLPolyh assigned;
    assigned = polyhedron;
    copy[0] = 1;
    EXPECT_EQ(assigned, (GLPolyh{7, 6, 5}));
    EXPECT_EQ(copy, (GLPolyh{1, 6, 5}));
    EXPECT_NE(copy, polyhedron);
    EXPECT_EQ(polyhedron[0], 7U);
}

TEST(GLTesselation, IsEmptyByDefaultAndForNone) {
    GLTesselation none(0);
    EXPECT_EQ(GLTesselation().size(), 0);
    EXPECT_EQ(none.size(), 0);
    EXPECT_FALSE(none.resize(0));
    EXPECT_EQ(none.size(), 0);
    EXPECT_FALSE(none.setPolyh(0, kPlaceholder));
}

TEST(GLTesselation, StartsWithPlaceholders) {
    GLTesselation const three(3);
    ASSERT_EQ(three.size(), 3);
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(three.getPolyh(i), kPlaceholder);
        EXPECT_EQ(three.polyhSize(static_cast<int>(i)), 4U);
    }
}

TEST(GLTesselation, ResizeDiscardsEverything) {
    GLTesselation tesselation(3);
    for (unsigned int i = 0; i < 3; ++i) {
        tesselation.setPolyh(i, {1, 2, 3, 4, 5});
    }
    EXPECT_TRUE(tesselation.resize(5));
    ASSERT_EQ(tesselation.size(), 5);
    for (unsigned int i = 0; i < 5; ++i) {
        EXPECT_EQ(tesselation.getPolyh(i), kPlaceholder);
    }
    EXPECT_FALSE(tesselation.resize(0));
    EXPECT_EQ(tesselation.size(), 0);
    EXPECT_TRUE(tesselation.resize(1));
    EXPECT_EQ(tesselation.size(), 1);
}

TEST(GLTesselation, SetPolyhStoresACopy) {
    GLTesselation tesselation(3);
    GLPolyh polyhedron{7, 0, 2};
    EXPECT_TRUE(tesselation.setPolyh(1, polyhedron));
    polyhedron[0] = 1;
    EXPECT_EQ(tesselation.polyhSize(1), 3U);
    EXPECT_EQ(tesselation.getNook(1, 0), 7);
    EXPECT_EQ(tesselation.getNook(1, 1), 0);
    EXPECT_EQ(tesselation.getNook(1, 2), 2);
    EXPECT_EQ(tesselation.getPolyh(0), kPlaceholder);
    EXPECT_EQ(tesselation.getPolyh(2), kPlaceholder);
    EXPECT_TRUE(tesselation.setPolyh(0, {1, 2, 3, 4, 5, 6, 7, 0}));
    EXPECT_EQ(tesselation.polyhSize(0), 8U);
    polyhedron.clear();
    EXPECT_TRUE(tesselation.setPolyh(0, polyhedron));
    EXPECT_EQ(tesselation.polyhSize(0), 0U);
}

TEST(GLTesselation, SetPolyhRefusesThePlacePastTheEnd) {
    GLTesselation tesselation(3);
    EXPECT_FALSE(tesselation.setPolyh(3, {7}));
    EXPECT_FALSE(tesselation.setPolyh(~0U, {7}));
    EXPECT_EQ(tesselation.size(), 3);
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(tesselation.getPolyh(i), kPlaceholder);
    }
}

TEST(GLTesselation, GetPolyhGivesThePolyhedronItself) {
    GLTesselation const tesselation(2);
    tesselation.getPolyh(1).push_back(6);
    EXPECT_EQ(tesselation.polyhSize(1), 5U);
    EXPECT_EQ(tesselation.getNook(1, 4), 6);
    tesselation.getPolyh(0).clear();
    EXPECT_EQ(tesselation.polyhSize(0), 0U);
}

TEST(GLTesselation, CopiesAreDeep) {
    GLTesselation source(2);
    source.setPolyh(0, {1, 2, 3});
    GLTesselation copy(source);
    GLTesselation assigned(9);
    assigned = source;
    source.setPolyh(0, {7});
    EXPECT_TRUE(source.resize(4));
    for (GLTesselation const* tesselation : {&std::as_const(copy), &std::as_const(assigned)}) {
        ASSERT_EQ(tesselation->size(), 2);
        EXPECT_EQ(tesselation->getPolyh(0), (GLPolyh{1, 2, 3}));
        EXPECT_EQ(tesselation->getPolyh(1), kPlaceholder);
    }
    assigned = GLTesselation(GLTesselation(0));
    EXPECT_EQ(assigned.size(), 0);
    GLTesselation const& same = copy;
    copy = same;
    EXPECT_EQ(copy.getPolyh(0), (GLPolyh{1, 2, 3}));
}

TEST(GLTesselation, ClearEmptiesIt) {
    GLTesselation tesselation(3);
    (tesselation.*access(tamo::test::ClearTag()))();
    EXPECT_EQ(tesselation.size(), 0);
    EXPECT_FALSE(tesselation.setPolyh(0, kPlaceholder));
}

TEST(GLTesselationDeathTest, CornerPastTheEndStopsTheProgram) {
    GLTesselation tesselation(1);
    EXPECT_DEATH(static_cast<void>(tesselation.getNook(0, 4)), "");
    tesselation.getPolyh(0).clear();
    EXPECT_DEATH(static_cast<void>(tesselation.getNook(0, 0)), "");
}

} // namespace
