// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/RecordingAggregator.h"
#include "support/oracle/ReferenceScan.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace tamo::test;

// Draws volumes, boxes and layouts; the same seed gives the same ones everywhere.
class Drawing {
  public:
    explicit Drawing(unsigned int seed) : _engine(seed) {}

    // Returns a number from `low` to `high`; the distributions of the standard library differ between systems.
    int number(int low, int high) {
        return low + static_cast<int>(_engine() % static_cast<unsigned int>(high - low + 1));
    }

    VolumeLayout layout() {
        std::array<std::array<std::size_t, 3>, 6> constexpr kOrders = {
            {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}}};
        VolumeLayout drawn;
        drawn.order = kOrders[static_cast<std::size_t>(number(0, 5))];
        for (bool& backwards : drawn.backwards) {
            backwards = number(0, 1) == 1;
        }
        drawn.spacing = number(0, 2) == 0 ? number(2, 4) : 1;
        drawn.gap = number(0, 1) == 0 ? number(1, 9) : 0;
        return drawn;
    }

    // Puts 0 or 1 into every sample of the box: noise of some density over a background, a foreground, or a block.
    void fillSamples(PlainVolume& volume, ScanBox const& box) {
        std::array<int, 6> constexpr kPromille = {0, 1, 20, 500, 300, 100};
        int const noise = kPromille[static_cast<std::size_t>(number(0, 5))];
        Triple low{};
        Triple high{};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            low[axis] = box.origin[axis] + number(0, box.extent[axis] - 1);
            high[axis] = number(0, 3) == 0 ? box.origin[axis] + box.extent[axis] - 1
                                           : number(low[axis], box.origin[axis] + box.extent[axis] - 1);
        }
        bool const isWhole = number(0, 2) == 0;
        forEachSample(box, [&](int x, int y, int z) {
            bool const inBlock =
                isWhole || (low[0] <= x && x <= high[0] && low[1] <= y && y <= high[1] && low[2] <= z && z <= high[2]);
            bool const isNoise = number(0, 999) < noise;
            volume.at(x, y, z) = inBlock != isNoise ? 1 : 0;
        });
    }

  private:
    template <typename Visit> static void forEachSample(ScanBox const& box, Visit const& visit) {
        int const step = static_cast<int>(box.step);
        for (int z = 0; z + step <= box.extent[2]; z += step) {
            for (int y = 0; y + step <= box.extent[1]; y += step) {
                for (int x = 0; x + step <= box.extent[0]; x += step) {
                    visit(box.origin[0] + x, box.origin[1] + y, box.origin[2] + z);
                }
            }
        }
    }

    std::mt19937 _engine;
};

class WrapGlobalReference : public testing::Test {
  protected:
    WrapGlobalReference() { makeMarkedList(list); }

    // Scans a box of `samples` in a larger volume whose other bytes are filler, and compares with the slow scan.
    void checkBox(Drawing& drawing, Triple const& samples, unsigned int step) {
        ScanBox box{step, {}, {}};
        Triple lower{};
        Triple size{};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            int const edge = static_cast<int>(step);
            box.extent[axis] = samples[axis] * edge + drawing.number(0, edge - 1);
            box.origin[axis] = drawing.number(-4, 4);
            lower[axis] = std::min(0, box.origin[axis]) - drawing.number(0, 2);
            size[axis] = std::max(box.origin[axis] + box.extent[axis], 1) - lower[axis] + drawing.number(0, 2);
        }
        PlainVolume volume(lower, size, drawing.layout());
        drawing.fillSamples(volume, box);

        RecordingAggregator receiver;
        ASSERT_TRUE(wrapGlobal(volume.data(), volume.increments(), step, toVec3(box.origin), toVec3(box.extent), list,
                               receiver));
        EXPECT_TRUE(receiver.wasDrivenInOrder());
        auto const valueAt = [&volume](int x, int y, int z) { return volume.at(x, y, z); };
        expectEqual(receiver.emissions, ReferenceScan(box).emissions(valueAt));
    }

    static void expectEqual(Emissions const& seen, Emissions const& expected) {
        auto const [s, e] = std::mismatch(seen.begin(), seen.end(), expected.begin(), expected.end());
        auto const show = [](auto const at, Emissions const& all) {
            return at == all.end() ? testing::PrintToString("the end") : testing::PrintToString(*at);
        };
        EXPECT_TRUE(s == seen.end() && e == expected.end())
            << "at place " << s - seen.begin() << ": " << show(s, seen) << " instead of " << show(e, expected);
    }

    GLObjectList list;
};

TEST_F(WrapGlobalReference, SmallBoxesAgreeInSequence) {
    Drawing drawing(1);
    for (int i = 0; i < 1500 && !HasFailure(); ++i) {
        Triple const samples = {drawing.number(1, 20), drawing.number(1, 20), drawing.number(1, 20)};
        auto const step = static_cast<unsigned int>(drawing.number(1, 4));
        SCOPED_TRACE(testing::Message() << "box " << i << ": " << testing::PrintToString(samples) << " step " << step);
        checkBox(drawing, samples, step);
    }
}

TEST_F(WrapGlobalReference, ThinBoxesAgreeInSequence) {
    Drawing drawing(2);
    for (unsigned int thinAxes = 1; thinAxes < 8; ++thinAxes) {
        for (int i = 0; i < 40 && !HasFailure(); ++i) {
            Triple samples{};
            for (unsigned int axis = 0; axis < 3; ++axis) {
                samples[axis] = (thinAxes >> axis & 1U) != 0 ? 1 : drawing.number(1, 40);
            }
            auto const step = static_cast<unsigned int>(drawing.number(1, 4));
            SCOPED_TRACE(testing::Message() << testing::PrintToString(samples) << " step " << step);
            checkBox(drawing, samples, step);
        }
    }
}

// Sides around the sizes of machine words, along each axis in turn.
TEST_F(WrapGlobalReference, SidesAroundPowersOfTwoAgreeInSequence) {
    Drawing drawing(3);
    for (int const side : {7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 127, 128, 129, 255, 256, 257}) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            for (int i = 0; i < 8 && !HasFailure(); ++i) {
                Triple samples = {drawing.number(1, 7), drawing.number(1, 7), drawing.number(1, 7)};
                samples[axis] = side;
                auto const step = static_cast<unsigned int>(drawing.number(1, 4));
                SCOPED_TRACE(testing::Message() << testing::PrintToString(samples) << " step " << step);
                checkBox(drawing, samples, step);
            }
        }
    }
}

TEST_F(WrapGlobalReference, LargeBoxesAgreeInSequence) {
    Drawing drawing(4);
    for (unsigned int const step : {1U, 1U, 1U, 1U, 1U, 1U, 2U, 2U, 2U, 3U, 3U, 4U}) {
        int const longest = step == 1 ? 150 : 100;
        Triple const samples = {drawing.number(60, longest), drawing.number(60, longest), drawing.number(60, longest)};
        SCOPED_TRACE(testing::Message() << testing::PrintToString(samples) << " step " << step);
        checkBox(drawing, samples, step);
    }
}

} // namespace
