// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLVec3f.h>

#include "support/oracle/PlainPolygon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

static_assert(std::is_trivially_copyable_v<GLVec3f>);
static_assert(std::is_standard_layout_v<GLVec3f>);
static_assert(sizeof(GLVec3f) == 3 * sizeof(float));

namespace {

using tamo::test::Plain3;
using tamo::test::sameFloats;

Plain3 plain(GLVec3f const& v) { return {v.x, v.y, v.z}; }

TEST(GLVec3f, IsZeroByDefaultAndBraceInitialised) {
    constexpr GLVec3f kZero;
    constexpr GLVec3f kVector{1, 2, 3};
    EXPECT_TRUE(sameFloats(plain(kZero), {0, 0, 0}));
    EXPECT_TRUE(sameFloats(plain(kVector), {1, 2, 3}));
}

TEST(GLVec3f, AddsSubtractsAndScalesByComponent) {
    GLVec3f const a{1, 2, 3};
    GLVec3f const b{10, -20, 30};
    GLVec3f sum = a;
    sum += b;
    GLVec3f scaled = a;
    scaled *= -2;
    EXPECT_TRUE(sameFloats(plain(a + b), {11, -18, 33}));
    EXPECT_TRUE(sameFloats(plain(sum), {11, -18, 33}));
    EXPECT_TRUE(sameFloats(plain(a - b), {-9, 22, -27}));
    EXPECT_TRUE(sameFloats(plain(scaled), {-2, -4, -6}));
    EXPECT_TRUE(sameFloats(plain(a * 0.5F), {0.5F, 1, 1.5F}));
}

TEST(GLVec3f, EqualsOnlyInAllComponentsExactly) {
    GLVec3f const a{1, 2, 3};
    EXPECT_TRUE(a == (GLVec3f{1, 2, 3}));
    EXPECT_FALSE(a != (GLVec3f{1, 2, 3}));
    for (GLVec3f const& other : {GLVec3f{1.0000001F, 2, 3}, GLVec3f{1, 2.0000002F, 3}, GLVec3f{1, 2, 3.0000002F}}) {
        EXPECT_FALSE(a == other);
        EXPECT_TRUE(a != other);
    }
    GLVec3f const none{NAN, 2, 3};
    EXPECT_FALSE(none == none);
}

TEST(GLVec3f, InfinitiesOfTheSameSignAreEqual) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (float GLVec3f::*const component : {&GLVec3f::x, &GLVec3f::y, &GLVec3f::z}) {
        GLVec3f a{1, 2, 3};
        a.*component = kInfinity;
        GLVec3f b = a;
        EXPECT_TRUE(a == b && !(a != b));
        b.*component = -kInfinity;
        EXPECT_TRUE(a != b && !(a == b));
    }
}

TEST(GLVec3f, CrossProductIsRightHanded) {
    GLVec3f const x{1, 0, 0};
    GLVec3f const y{0, 1, 0};
    EXPECT_TRUE(sameFloats(plain(x.cross(y)), {0, 0, 1}));
    EXPECT_TRUE(sameFloats(plain((GLVec3f{2, 3, 5}).cross({7, 11, 13})), {-16, 9, 1}));
}

TEST(GLVec3f, ProductsAndLengthsAreRoundedInComponentOrder) {
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        tamo::test::PlainPolygon const two = tamo::test::randomPolygon(random, 2, /*onLattice=*/false);
        Plain3 const p = two.position(0);
        Plain3 const q = two.position(1);
        GLVec3f const a{p.x, p.y, p.z};
        GLVec3f const b{q.x, q.y, q.z};
        GLVec3f direction = a;
        direction.normalize();
        EXPECT_EQ(a.dot(b), tamo::test::dotOf(p, q));
        EXPECT_EQ(a.length(), tamo::test::lengthOf(p));
        EXPECT_TRUE(sameFloats(plain(direction), tamo::test::unit(p)));
        EXPECT_TRUE(sameFloats(plain(a.cross(b)), tamo::test::crossOf(p, q)));
        EXPECT_TRUE(sameFloats(plain(a.normalizedCross(b)), tamo::test::unit(tamo::test::crossOf(p, q))));
    }
}

TEST(GLVec3f, ZeroLengthNormalisesToNaN) {
    GLVec3f zero;
    zero.normalize();
    GLVec3f const parallel = (GLVec3f{1, 2, 3}).normalizedCross({2, 4, 6});
    for (GLVec3f const& v : {zero, parallel}) {
        EXPECT_TRUE(std::isnan(v.x) && std::isnan(v.y) && std::isnan(v.z));
    }
}

} // namespace
