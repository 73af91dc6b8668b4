// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

#include "support/PrivateAccess.h"
#include "support/WritableView.h"
#include "support/oracle/PlainPolygon.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

namespace tamo::test {

struct BeginTag {
    using Type = float* (GLPolygon::*)();
    friend Type access(BeginTag);
};
template struct PrivateAccess<BeginTag, &GLPolygon::_begin>;

struct ConstBeginTag {
    using Type = float const* (GLPolygon::*)() const;
    friend Type access(ConstBeginTag);
};
template struct PrivateAccess<ConstBeginTag, &GLPolygon::_begin>;

} // namespace tamo::test

static_assert(std::has_virtual_destructor_v<GLPolygon>);

namespace {

using tamo::test::numberedPolygon;
using tamo::test::PlainPolygon;
using tamo::test::samePolygon;

std::vector<float> floatsOf(GLPolygon const& polygon) {
    return polygon.size() == 0 ? std::vector<float>()
                               : std::vector<float>(polygon.vData(0), polygon.vData(polygon.size()));
}

TEST(GLPolygon, DefaultIsThreeZeroVerticesWithoutFlagsInBlack) {
    PlainPolygon zeros;
    zeros.vertices.resize(3);
    EXPECT_TRUE(samePolygon(GLPolygon(), zeros));
    zeros.vertices.resize(5);
    EXPECT_TRUE(samePolygon(GLPolygon(5), zeros));
    EXPECT_EQ(GLPolygon(0).size(), 0U);
    std::vector<GLPolygon> const array(2);
    EXPECT_EQ(array[1].size(), 3U);
}

TEST(GLPolygon, VertexRecordIsNormalThenPosition) {
    GLPolygon polygon = numberedPolygon(3);
    GLPolygon const& constant = polygon;
    EXPECT_EQ(polygon.vData(2), polygon.vData(0) + 12);
    EXPECT_EQ(constant.vData(2), polygon.vData(2));
    EXPECT_EQ(polygon.normal(1), (GLVec3f{7, 8, 9}));
    EXPECT_EQ(polygon.vertex(1), (GLVec3f{10, 11, 12}));
    EXPECT_EQ(constant.normal(2), (GLVec3f{13, 14, 15}));
    EXPECT_EQ(constant.vertex(2), (GLVec3f{16, 17, 18}));
    EXPECT_EQ(polygon.access(2).vertex(), (GLVec3f{16, 17, 18}));
    EXPECT_EQ(polygon.access(2).normal(), (GLVec3f{13, 14, 15}));
    EXPECT_EQ(constant.access(0).vertex(), (GLVec3f{4, 5, 6}));
    EXPECT_EQ(constant.access(0).normal(), (GLVec3f{1, 2, 3}));
}

TEST(GLPolygon, BeginIsTheFirstFloat) {
    GLPolygon polygon = numberedPolygon(3);
    EXPECT_EQ((polygon.*access(tamo::test::BeginTag()))(), polygon.vData(0));
    EXPECT_EQ((polygon.*access(tamo::test::ConstBeginTag()))(), polygon.vData(0));
}

TEST(GLPolygon, AccessorsWriteIntoTheArray) {
    GLPolygon polygon(3);
    polygon.vertex(2) = GLVec3f{1, 2, 3};
    polygon.normal(2) = GLVec3f{4, 5, 6};
    polygon.access(0).vertex() = GLVec3f{7, 8, 9};
    polygon.access(0).normal() = GLVec3f{10, 11, 12};
    EXPECT_EQ(floatsOf(polygon), (std::vector<float>{10, 11, 12, 7, 8, 9, 0, 0, 0, 0, 0, 0, 4, 5, 6, 1, 2, 3}));
}

TEST(GLPolygon, ReadOnlyFormsStayReadOnlyThroughCopies) {
    using Const = GLPolygon const&;
    static_assert(std::is_same_v<decltype(std::declval<Const>().vData(0)), float const*>);
    static_assert(std::is_same_v<decltype(std::declval<Const>().color()), GLVec3f const&>);
    static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<Const>().vertex(0))>);
    static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<Const>().normal(0))>);
    using Record = std::decay_t<decltype(std::declval<Const>().access(0))>;
    static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<Record&>().vertex())>);
    static_assert(!tamo::test::kIsCopyWritable<decltype(std::declval<Record&>().normal())>);
    GLPolygon const polygon = numberedPolygon(1);
    EXPECT_EQ(&polygon.color(), &polygon.color());
}

TEST(GLPolygon, SettingFanOrStripClearsTheOtherWhateverTheValue) {
    for (bool const before : {false, true}) {
        for (bool const value : {false, true}) {
            GLPolygon polygon;
            polygon.setProperties(before, before, true, true);
            polygon.setFan(value);
            EXPECT_EQ(polygon.isFan(), value);
            EXPECT_FALSE(polygon.isStrip());
            polygon.setProperties(before, before, true, true);
            polygon.setStrip(value);
            EXPECT_EQ(polygon.isStrip(), value);
            EXPECT_FALSE(polygon.isFan());
            EXPECT_TRUE(polygon.isClosed() && polygon.isCCW());
        }
    }
}

TEST(GLPolygon, ClosedAndCounterClockwiseStandAlone) {
    GLPolygon polygon;
    polygon.setProperties(true, true, false, false);
    polygon.setClosed(true);
    EXPECT_TRUE(polygon.isClosed() && !polygon.isCCW() && polygon.isFan() && polygon.isStrip());
    polygon.setClosed(false);
    polygon.setCCW(true);
    EXPECT_TRUE(!polygon.isClosed() && polygon.isCCW() && polygon.isFan() && polygon.isStrip());
    polygon.setCCW(false);
    EXPECT_FALSE(polygon.isCCW());
}

TEST(GLPolygon, TypeIsFanBeforeStripBeforePolygon) {
    GLPolygon polygon;
    EXPECT_EQ(polygon.type(), 9);
    polygon.setStrip(true);
    EXPECT_EQ(polygon.type(), 5);
    polygon.setFan(false);
    EXPECT_EQ(polygon.type(), 9);
    polygon.setFan(true);
    EXPECT_EQ(polygon.type(), 6);
    polygon.setProperties(true, true, false, false);
    EXPECT_EQ(polygon.type(), 6);
    polygon.setProperties(false, true, true, true);
    EXPECT_EQ(polygon.type(), 5);
}

TEST(GLPolygon, ResizeKeepsFloatsZeroesNewOnesAndIsTrueOnlyForNone) {
    GLPolygon polygon = numberedPolygon(3);
    polygon.setProperties(true, false, true, true);
    std::vector<float> expected = floatsOf(polygon);
    EXPECT_FALSE(polygon.resize(4));
    expected.resize(24, 0.0F);
    EXPECT_EQ(floatsOf(polygon), expected);
    EXPECT_FALSE(polygon.resize(2));
    expected.resize(12);
    EXPECT_EQ(floatsOf(polygon), expected);
    EXPECT_FALSE(polygon.resize(2));
    EXPECT_TRUE(polygon.resize(0));
    EXPECT_EQ(polygon.size(), 0U);
    EXPECT_FALSE(polygon.resize(1));
    EXPECT_EQ(floatsOf(polygon), std::vector<float>(6, 0.0F));
    EXPECT_TRUE(polygon.isFan() && polygon.isClosed() && polygon.isCCW());
    EXPECT_EQ(polygon.color(), (GLVec3f{1, 0, 0}));
}

TEST(GLPolygon, ClearKeepsFlagsAndColour) {
    GLPolygon polygon = numberedPolygon(3);
    polygon.setProperties(true, true, true, true);
    polygon.clear();
    EXPECT_EQ(polygon.size(), 0U);
    EXPECT_TRUE(polygon.isFan() && polygon.isStrip() && polygon.isClosed() && polygon.isCCW());
    EXPECT_EQ(polygon.color(), (GLVec3f{1, 0, 0}));
    EXPECT_FALSE(polygon.resize(1));
    EXPECT_EQ(floatsOf(polygon), std::vector<float>(6, 0.0F));
}

TEST(GLPolygon, PushBackIsRefused) {
    GLPolygon polygon = numberedPolygon(3);
    PlainPolygon const before = tamo::test::plainOf(polygon);
    EXPECT_FALSE(polygon.pushBack(polygon.vertex(0)));
    EXPECT_FALSE(polygon.pushBack(std::as_const(polygon).vertex(0)));
    EXPECT_TRUE(samePolygon(polygon, before));
}

TEST(GLPolygonDeathTest, ReadingFromNoVerticesStopsTheProgram) {
    GLPolygon polygon(0);
    GLPolygon const& constant = polygon;
    EXPECT_DEATH(static_cast<void>(polygon.vData(0)), "");
    EXPECT_DEATH(static_cast<void>(constant.vData(0)), "");
    EXPECT_DEATH(static_cast<void>(polygon.vertex(0)), "");
    EXPECT_DEATH(static_cast<void>(constant.normal(0)), "");
    EXPECT_DEATH(static_cast<void>(polygon.access(0)), "");
}

} // namespace
