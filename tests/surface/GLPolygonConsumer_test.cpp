// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/opengl/GlCallRecorder.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/GLPolygonConsumer.h>
#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace {

using tamo::test::GlCall;
using tamo::test::takeGlCalls;
using Calls = std::vector<GlCall>;

GlCall newList(unsigned int list) { return {"glNewList", {list, GL_COMPILE}, {}}; }
GlCall interleavedArrays() { return {"glInterleavedArrays", {GL_N3F_V3F, 0}, {}}; }
GlCall drawArrays(unsigned int mode, std::vector<float> const& floats) {
    return {"glDrawArrays", {mode, 0, static_cast<unsigned int>(floats.size() / 6)}, floats};
}

Calls const kStart = {{"glEnableClientState", {GL_VERTEX_ARRAY}, {}}, {"glEnableClientState", {GL_NORMAL_ARRAY}, {}}};
Calls const kFinish = {{"glEndList", {}, {}},
                       {"glDisableClientState", {GL_VERTEX_ARRAY}, {}},
                       {"glDisableClientState", {GL_NORMAL_ARRAY}, {}}};

std::vector<float> floatsOf(GLPolygon const& polygon) {
    return {polygon.vData(0), polygon.vData(0) + 6 * polygon.size()};
}

// Makes a polygon whose floats are all different.
std::unique_ptr<GLPolygon> makePolygon(unsigned int vertices, float first) {
    auto polygon = std::make_unique<GLPolygon>(vertices);
    for (unsigned int i = 0; i < 6 * vertices; ++i) {
        polygon->vData(0)[i] = first + static_cast<float>(i);
    }
    polygon->color() = GLVec3f(first, 0.25F, 0.5F);
    return polygon;
}

class GLPolygonConsumerTest : public testing::Test {
  protected:
    GLPolygonConsumerTest() {
        fan->setFan(true);
        strip->setStrip(true);
        both->setProperties(true, true, false, false);
        for (GLPolygon* polygon : {plain, fan, strip, both}) {
            object.push_back(polygon);
        }
        takeGlCalls();
    }

    GLPolygon* plain = makePolygon(3, 100).release();
    GLPolygon* fan = makePolygon(5, 200).release();
    GLPolygon* strip = makePolygon(4, 300).release();
    GLPolygon* both = makePolygon(6, 400).release();
    GLObject object;
};

TEST_F(GLPolygonConsumerTest, ConstructionOpensTheList) {
    GLPolygonConsumer const consumer(17);
    EXPECT_EQ(takeGlCalls(), Calls{newList(17)});
}

TEST_F(GLPolygonConsumerTest, DefaultConstructionOpensListZeroToo) {
    GLPolygonConsumer const consumer;
    EXPECT_EQ(takeGlCalls(), Calls{newList(0)});
}

// A list name stands for its consumer, as in `GLPolygonConsumer consumer = list`.
static_assert(std::is_convertible_v<int, GLPolygonConsumer>);

TEST_F(GLPolygonConsumerTest, SetListOpensTheListAndKeepsItsName) {
    GLPolygonConsumer consumer(0);
    takeGlCalls();
    consumer.setList(9);
    EXPECT_EQ(takeGlCalls(), Calls{newList(9)});
    consumer.fetch(object);
    EXPECT_FALSE(takeGlCalls().empty());
    consumer.setList(0);
    EXPECT_EQ(takeGlCalls(), Calls{newList(0)});
    consumer.fetch(object);
    EXPECT_TRUE(takeGlCalls().empty());
}

TEST_F(GLPolygonConsumerTest, CopiesShareTheNameAndCallNothing) {
    GLPolygonConsumer const open(5);
    GLPolygonConsumer const none(0);
    takeGlCalls();
    GLPolygonConsumer copy(open);
    EXPECT_TRUE(takeGlCalls().empty());
    copy.fetch(object);
    EXPECT_FALSE(takeGlCalls().empty());
    copy = none;
    EXPECT_TRUE(takeGlCalls().empty());
    copy.fetch(object);
    EXPECT_TRUE(takeGlCalls().empty());
}

TEST_F(GLPolygonConsumerTest, DestructionCallsNothing) {
    auto consumer = std::make_unique<GLPolygonConsumer>(5);
    takeGlCalls();
    consumer.reset();
    EXPECT_TRUE(takeGlCalls().empty());
}

TEST_F(GLPolygonConsumerTest, StartAndFinishSwitchTheArraysAndEndTheList) {
    GLPolygonConsumer consumer(5);
    takeGlCalls();
    consumer.start();
    EXPECT_EQ(takeGlCalls(), kStart);
    consumer.finish();
    EXPECT_EQ(takeGlCalls(), kFinish);
}

TEST_F(GLPolygonConsumerTest, FetchDrawsEachPolygonInItsColour) {
    GLPolygonConsumer consumer(5);
    takeGlCalls();
    consumer.fetch(object);
    auto const color = [](float red) { return GlCall{"glColor3fv", {}, {red, 0.25F, 0.5F}}; };
    Calls const expected = {
        color(100), interleavedArrays(), drawArrays(GL_POLYGON, floatsOf(*plain)),
        color(200), interleavedArrays(), drawArrays(GL_TRIANGLE_FAN, floatsOf(*fan)),
        color(300), interleavedArrays(), drawArrays(GL_TRIANGLE_STRIP, floatsOf(*strip)),
        color(400), interleavedArrays(), drawArrays(GL_TRIANGLE_FAN, floatsOf(*both)),
    };
    EXPECT_EQ(takeGlCalls(), expected);
}

std::vector<float> moved(std::vector<float> floats, GLVec3f const& offset) {
    for (std::size_t i = 0; i < floats.size(); i += 6) {
        floats[i + 3] += offset.x;
        floats[i + 4] += offset.y;
        floats[i + 5] += offset.z;
    }
    return floats;
}

TEST_F(GLPolygonConsumerTest, FetchWithOffsetDrawsMovedCopiesWithoutColour) {
    std::vector<float> const before = floatsOf(*strip);
    for (int const list : {5, 0}) {
        GLPolygonConsumer consumer(list);
        takeGlCalls();
        consumer.fetch(object, GLCoord3f(1, 2, 3));
        GLVec3f const offset(1, 2, 3);
        Calls const expected = {
            interleavedArrays(), drawArrays(GL_POLYGON, moved(floatsOf(*plain), offset)),
            interleavedArrays(), drawArrays(GL_TRIANGLE_FAN, moved(floatsOf(*fan), offset)),
            interleavedArrays(), drawArrays(GL_TRIANGLE_STRIP, moved(floatsOf(*strip), offset)),
            interleavedArrays(), drawArrays(GL_TRIANGLE_FAN, moved(floatsOf(*both), offset)),
        };
        EXPECT_EQ(takeGlCalls(), expected);
    }
    EXPECT_EQ(floatsOf(*strip), before);
    EXPECT_EQ(strip->color(), GLVec3f(300, 0.25F, 0.5F));
}

TEST_F(GLPolygonConsumerTest, AnEmptyObjectCallsNothing) {
    GLObject empty;
    GLPolygonConsumer consumer(5);
    takeGlCalls();
    consumer.fetch(empty);
    consumer.fetch(empty, GLCoord3f(1, 2, 3));
    EXPECT_TRUE(takeGlCalls().empty());
}

TEST_F(GLPolygonConsumerTest, ListZeroDrawsNothingWithoutOffset) {
    GLPolygonConsumer consumer(0);
    takeGlCalls();
    consumer.fetch(object);
    EXPECT_TRUE(takeGlCalls().empty());
}

TEST_F(GLPolygonConsumerTest, APolygonWithoutFloatsStopsTheProgram) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    GLObject bare;
    bare.push_back(std::make_unique<GLPolygon>(0U).release());
    GLPolygonConsumer consumer(5);
    EXPECT_DEATH(consumer.fetch(bare), "");
    EXPECT_DEATH(consumer.fetch(bare, GLCoord3f(1, 2, 3)), "");
}

TEST_F(GLPolygonConsumerTest, AScanGivesOneListWithOneDrawingAPolygon) {
    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    auto const volume = tamo::test::PlainVolume::filled({6, 5, 4}, 1);
    GLDataInfo info;
    ASSERT_TRUE(getGLDataInfo(volume.data(), volume.increments(), 2, {0, 0, 0}, {6, 5, 4}, list, info));
    GLPolygonConsumer consumer(5);
    ASSERT_TRUE(wrapGlobal(volume.data(), volume.increments(), 2, {0, 0, 0}, {6, 5, 4}, list, consumer));

    Calls const calls = takeGlCalls();
    ASSERT_EQ(calls.size(), 1 + 2 + 2 * info.primitives() + 3);
    EXPECT_EQ(calls.front(), newList(5));
    EXPECT_TRUE(std::equal(kStart.begin(), kStart.end(), calls.begin() + 1));
    EXPECT_TRUE(std::equal(kFinish.begin(), kFinish.end(), calls.end() - 3));
    for (std::size_t i = 3; i + 3 < calls.size(); i += 2) {
        EXPECT_EQ(calls[i], interleavedArrays());
        EXPECT_EQ(calls[i + 1].name, "glDrawArrays");
    }
}

TEST_F(GLPolygonConsumerTest, ARefusedScanStillOpensAndEndsTheList) {
    GLObjectList const list;
    GLPolygonConsumer consumer(5);
    EXPECT_FALSE(wrapGlobal(nullptr, {1, 1, 1}, 1, {0, 0, 0}, {1, 1, 1}, list, consumer));
    Calls expected = {newList(5)};
    expected.insert(expected.end(), kStart.begin(), kStart.end());
    expected.insert(expected.end(), kFinish.begin(), kFinish.end());
    EXPECT_EQ(takeGlCalls(), expected);
}

} // namespace
