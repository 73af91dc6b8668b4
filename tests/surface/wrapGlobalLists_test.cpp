// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/RecordingAggregator.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>

namespace {

using namespace tamo::test;

// Keeps a flat copy of a list: addresses of objects and polygons, and all floats.
struct ListSnapshot {
    explicit ListSnapshot(GLObjectList const& list) {
        for (GLObject const* object : list) {
            addresses.push_back(object);
            for (GLPolygon const* polygon : *object) {
                addresses.push_back(polygon);
                floats.insert(floats.end(), polygon->vData(0), polygon->vData(0) + 6 * polygon->size());
                floats.push_back(polygon->color().x);
            }
        }
    }
    bool operator==(ListSnapshot const& other) const { return addresses == other.addresses && floats == other.floats; }

    std::vector<void const*> addresses;
    std::vector<float> floats;
};

// Remembers which object each configuration came with, and where its last vertex stood.
struct ObjectCollector : RecordingAggregator {
    void fetch(GLObject& object, GLCoord3f const& offset) override {
        RecordingAggregator::fetch(object, offset);
        objects.insert({markOf(object), &object});
        lastVertices.push_back(object[0]->vertex(2));
        colors.push_back(object[0]->color());
    }
    std::set<std::pair<unsigned int, GLObject*>> objects;
    std::vector<GLVec3f> lastVertices;
    std::vector<GLVec3f> colors;
};

class WrapGlobalLists : public testing::Test {
  protected:
    WrapGlobalLists() { makeMarkedList(list); }

    ObjectCollector scan(unsigned int step) {
        PlainVolume const volume = PlainVolume::filled({6, 6, 6}, 1);
        ObjectCollector receiver;
        EXPECT_TRUE(wrapGlobal(volume.data(), volume.increments(), step, {0, 0, 0}, {6, 6, 6}, list, receiver));
        return receiver;
    }

    GLObjectList list;
};

TEST_F(WrapGlobalLists, StepOneHandsOutTheCallersOwnObjects) {
    ListSnapshot const before(list);
    ObjectCollector const receiver = scan(1);
    EXPECT_EQ(receiver.objects.size(), 26U);
    for (auto const& [configuration, object] : receiver.objects) {
        EXPECT_EQ(object, list[configuration]);
    }
    EXPECT_TRUE(ListSnapshot(list) == before);
}

TEST_F(WrapGlobalLists, OtherStepsHandOutOneScaledCopyAndLeaveTheListAlone) {
    ListSnapshot const before(list);
    ObjectCollector const receiver = scan(2);
    EXPECT_EQ(receiver.objects.size(), 26U);
    for (auto const& [configuration, object] : receiver.objects) {
        EXPECT_EQ(std::count(list.begin(), list.end(), object), 0) << configuration;
    }
    for (std::size_t i = 0; i < receiver.emissions.size(); ++i) {
        EXPECT_EQ(receiver.lastVertices[i], GLVec3f(2.0F, 1.0F, 0.0F));
        EXPECT_EQ(receiver.colors[i], GLVec3f(0.0F, 0.0F, 0.0F));
    }
    EXPECT_TRUE(ListSnapshot(list) == before);
}

TEST_F(WrapGlobalLists, ScaledObjectsLiveUntilFinish) {
    struct LateReader : RecordingAggregator {
        void finish() override { mark = markOf(*lastObject); }
        unsigned int mark = 0;
    };
    PlainVolume const volume = PlainVolume::filled({2, 2, 2}, 1);
    LateReader receiver;
    EXPECT_TRUE(wrapGlobal(volume.data(), volume.increments(), 2, {0, 0, 0}, {2, 2, 2}, list, receiver));
    EXPECT_EQ(receiver.mark, 1U);
}

// Increments of 0 let one foreground voxel stand for a volume of any extent at any origin.
class WrapGlobalPositions : public WrapGlobalLists {
  protected:
    std::vector<float> xPositions(unsigned int step, int origin, unsigned int extent) {
        unsigned char const voxel = 1;
        RecordingAggregator receiver;
        int const one = static_cast<int>(step);
        EXPECT_TRUE(
            wrapGlobal(&voxel, {0, 0, 0}, step, {origin, 0, 0}, {static_cast<int>(extent), one, one}, list, receiver));
        std::vector<float> positions;
        for (Emission const& e : receiver.emissions) {
            positions.push_back(e.position.x);
        }
        std::sort(positions.begin(), positions.end());
        positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
        return positions;
    }
};

TEST_F(WrapGlobalPositions, CellAndOriginBecomeFloatsApartFromEachOther) {
    // 2^24 + 1 is no float and becomes 2^24; then 1 is lost in the sum, and 3 rounds up to 4. So it goes for cells too.
    EXPECT_EQ(xPositions(1, 16777217, 4), (std::vector<float>{16777215.0F, 16777216.0F, 16777218.0F, 16777220.0F}));
    EXPECT_EQ(xPositions(1, -16777217, 4),
              (std::vector<float>{-16777216.0F, -16777215.0F, -16777214.0F, -16777213.0F}));
    EXPECT_EQ(xPositions(16777217, 1, 4 * 16777217U),
              (std::vector<float>{-16777215.0F, 1.0F, 16777216.0F, 33554432.0F, 50331652.0F}));
}

TEST_F(WrapGlobalPositions, ExtentsAreReadAsUnsigned) {
    EXPECT_EQ(xPositions(4294967295U, 0, 4294967295U), (std::vector<float>{-4294967296.0F, 0.0F}));
    EXPECT_EQ(xPositions(1500000000U, 7, 4294967295U), (std::vector<float>{-1500000000.0F, 7.0F, 1500000000.0F}));
}

TEST_F(WrapGlobalPositions, StepsAreReadAsUnsigned) {
    unsigned char const voxel = 1;
    ObjectCollector receiver;
    ASSERT_TRUE(wrapGlobal(&voxel, {0, 0, 0}, 4294967295U, {0, 0, 0}, {-1, -1, -1}, list, receiver));
    EXPECT_EQ(receiver.lastVertices, std::vector<GLVec3f>(8, GLVec3f(4294967296.0F, 2147483648.0F, 0.0F)));
}

} // namespace
