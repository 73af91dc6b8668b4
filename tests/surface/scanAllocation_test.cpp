// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/StreamCapture.h"
#include "support/memory/FailingNew.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <array>
#include <iostream>
#include <memory>
#include <set>

namespace {

using namespace tamo::test;

// A polygon by the slot of its object and its place there.
using PolygonPlace = std::pair<unsigned int, unsigned int>;

constexpr unsigned int kLargestObject = 3;

// Takes note of allocations and polygons without allocating anything itself.
class FrugalAggregator : public IPolygonAggregator {
  public:
    void start() override { ++starts; }

    void finish() override {
        ++finishes;
        allocationsAtFinish = FailingNew::allocations();
    }

    void fetch(GLObject& object, GLCoord3f const& /*offset*/) override {
        if (fetches++ == 0) {
            allocationsAtFirstFetch = FailingNew::allocations();
        }
        for (GLPolygon const* polygon : object) {
            float const* const mark = polygon->vData(0);
            _isSeen[static_cast<std::size_t>(mark[0])][static_cast<std::size_t>(mark[1])] = true;
        }
        if (fetches == throwAtFetch) {
            throw fetches;
        }
    }

    void fetch(GLObject& /*object*/) override { FAIL() << "the scan hands over objects with their position only"; }

    // Returns the polygons that came in any object.
    [[nodiscard]] std::set<PolygonPlace> seen() const {
        std::set<PolygonPlace> places;
        for (unsigned int c = 0; c < 256; ++c) {
            for (unsigned int i = 0; i < kLargestObject; ++i) {
                if (_isSeen[c][i]) {
                    places.insert({c, i});
                }
            }
        }
        return places;
    }

    int starts = 0;
    int finishes = 0;
    int fetches = 0;
    int throwAtFetch = -1;
    std::size_t allocationsAtFirstFetch = 0;
    std::size_t allocationsAtFinish = 0;

  private:
    std::array<std::array<bool, kLargestObject>, 256> _isSeen{};
};

// Scans a volume in which every configuration occurs, with a list whose objects have 0 to 3 marked polygons.
class ScanAllocation : public testing::Test {
  protected:
    ScanAllocation() : volume(PlainVolume::filled({kStep * kSamples, kStep * 2, kStep * 2}, 0)) {
        for (int c = 1; c < 256; ++c) {
            for (int corner = 0; corner < 8; ++corner) {
                bool const isForeground = (static_cast<unsigned int>(c) >> static_cast<unsigned int>(corner) & 1U) != 0;
                volume.at(kStep * (3 * c + corner % 2), kStep * (corner / 2 % 2), kStep * (corner / 4)) = isForeground;
            }
        }
        for (unsigned int c = 0; c < 256; ++c) {
            auto object = std::make_unique<GLObject>();
            for (unsigned int i = 0; i < c % 255 % (kLargestObject + 1); ++i) {
                auto polygon = std::make_unique<GLPolygon>(3U);
                polygon->setNormals(GLVec3f(static_cast<float>(c), static_cast<float>(i), 0.0F));
                object->push_back(polygon.release());
            }
            list.push_back(object.release());
        }
    }

    // With step 1, scans the samples of step 2 as neighbours.
    bool scan(unsigned int step, IPolygonAggregator& receiver) const {
        int const spread = kStep / static_cast<int>(step);
        auto const [x, y, z] = volume.increments();
        int const edge = static_cast<int>(step);
        return wrapGlobal(volume.data(), {x * spread, y * spread, z * spread}, step, {0, 0, 0},
                          {kSamples * edge, 2 * edge, 2 * edge}, list, receiver);
    }

    static constexpr int kStep = 2;
    static constexpr int kSamples = 3 * 256 + 2;
    PlainVolume volume;
    GLObjectList list;
};

TEST_F(ScanAllocation, NothingIsAllocatedFromTheFirstFetchOn) {
    for (unsigned int const step : {1U, 2U}) {
        SCOPED_TRACE(step);
        FrugalAggregator receiver;
        FailingNew const counter;
        EXPECT_TRUE(scan(step, receiver));
        EXPECT_GT(receiver.fetches, 254);
        EXPECT_EQ(receiver.allocationsAtFinish, receiver.allocationsAtFirstFetch);
        EXPECT_EQ(receiver.allocationsAtFirstFetch == 0, step == 1);
    }
}

TEST_F(ScanAllocation, CountingAllocatesNothing) {
    GLDataInfo info;
    FailingNew const counter;
    EXPECT_TRUE(getGLDataInfo(volume.data(), volume.increments(), 2, {0, 0, 0}, {kSamples * 2, 4, 4}, list, info));
    EXPECT_EQ(FailingNew::allocations(), 0U);
}

TEST_F(ScanAllocation, TheScaledCopyIsFreedAtTheEnd) {
    FrugalAggregator receiver;
    std::ptrdiff_t const before = FailingNew::liveBlocks();
    EXPECT_TRUE(scan(2, receiver));
    EXPECT_EQ(FailingNew::liveBlocks(), before);
}

TEST_F(ScanAllocation, TheScaledCopyIsFreedWhenTheReceiverThrows) {
    for (int const throwAtFetch : {1, 2, 500}) {
        for (unsigned int const step : {1U, 2U}) {
            FrugalAggregator receiver;
            receiver.throwAtFetch = throwAtFetch;
            std::ptrdiff_t const before = FailingNew::liveBlocks();
            int thrown = 0;
            try {
                scan(step, receiver);
            } catch (int fetches) {
                thrown = fetches;
            }
            EXPECT_EQ(thrown, throwAtFetch);
            EXPECT_EQ(receiver.fetches, throwAtFetch);
            EXPECT_EQ(FailingNew::liveBlocks(), before);
        }
    }
}

// What one scan with one failing allocation came to.
struct Outcome {
    bool result;
    std::string message;
    FrugalAggregator receiver;
};

class ScanAllocationFailure : public ScanAllocation {
  protected:
    ScanAllocationFailure() { EXPECT_TRUE(scan(2, complete)); }

    Outcome scanFailingAt(std::size_t allocation) {
        Outcome outcome{};
        std::ptrdiff_t const before = FailingNew::liveBlocks();
        {
            StreamCapture const errors(std::cerr);
            {
                FailingNew const failing(allocation);
                outcome.result = scan(2, outcome.receiver);
                _hasFailed = FailingNew::hasFailed();
            }
            EXPECT_EQ(FailingNew::liveBlocks(), before);
            EXPECT_EQ(errors.flushes() > 0, _hasFailed);
            outcome.message = errors.text();
        }
        EXPECT_EQ(outcome.receiver.starts, 1);
        EXPECT_EQ(outcome.receiver.finishes, 1);
        return outcome;
    }

    // Returns the one polygon that did not reach the receiver.
    PolygonPlace onlyMissing(FrugalAggregator const& receiver) const {
        std::set<PolygonPlace> const seen = receiver.seen();
        std::set<PolygonPlace> missing;
        for (PolygonPlace const& place : complete.seen()) {
            if (seen.count(place) == 0) {
                missing.insert(place);
            }
        }
        EXPECT_EQ(missing.size(), 1U);
        return missing.empty() ? PolygonPlace{} : *missing.begin();
    }

    [[nodiscard]] bool hasFailed() const { return _hasFailed; }

    FrugalAggregator complete;

  private:
    bool _hasFailed = false;
};

// Either a polygon is missing from the copy, and the scan goes on without it, or there is no copy and no scan.
TEST_F(ScanAllocationFailure, EveryAllocationFailsWithItsOneMessage) {
    std::set<PolygonPlace> missed;
    std::size_t refusals = 0;
    for (std::size_t allocation = 1; !HasFailure(); ++allocation) {
        SCOPED_TRACE(testing::Message() << "allocation " << allocation);
        Outcome const outcome = scanFailingAt(allocation);
        if (!hasFailed()) {
            EXPECT_TRUE(outcome.result);
            EXPECT_EQ(outcome.message, "");
            break;
        }
        if (outcome.result) {
            EXPECT_EQ(outcome.message, "Polygon could not be created\n");
            EXPECT_EQ(outcome.receiver.fetches, complete.fetches);
            missed.insert(onlyMissing(outcome.receiver));
        } else {
            ++refusals;
            EXPECT_EQ(outcome.message, "wrapGlobal alloc error\n");
            EXPECT_EQ(outcome.receiver.fetches, 0);
        }
    }
    EXPECT_EQ(complete.seen().size(), 254U / 4 * 6 + 3);
    EXPECT_EQ(missed, complete.seen());
    // The list itself and each of its objects; slots 0 and 255 included.
    EXPECT_GE(refusals, 1U + 256U);
}

TEST_F(ScanAllocationFailure, StepOneAllocatesNothingThatCouldFail) {
    FrugalAggregator receiver;
    FailingNew const failing(1);
    EXPECT_TRUE(scan(1, receiver));
    EXPECT_FALSE(FailingNew::hasFailed());
}

} // namespace
