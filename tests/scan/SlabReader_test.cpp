// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "RingMemory.h"

#include "src/scan/SlabReader.h"

#include <algorithm>
#include <ostream>

namespace {

using namespace tamo::scan;
using namespace tamo::test;

// Reads the grid slab by slab and looks at each sample of what was read, and of the slab before it.
void expectAllSlabs(SampleGrid const& grid, ReadPlan const& plan) {
    RingMemory const memory(grid, plan);
    SlabRing const& ring = memory.ring();
    SlabReader const reader(grid, plan);
    std::int64_t count = std::min(plan.slabsOfFirstRead, grid.count.y);
    for (std::int64_t y = 0; y < grid.count.y; y += count, count = std::min(plan.slabsPerRead, grid.count.y - y)) {
        reader.read(y, count, ring);
        for (std::int64_t i = std::max(y - 1, std::int64_t{0}); i < y + count; ++i) {
            ASSERT_TRUE(isSlab(grid, i, ring, ring.slab(i))) << "with slabs " << y << " to " << y + count - 1;
        }
    }
}

struct Direction {
    std::array<std::size_t, 3> order;
    bool isBackwards;
};

std::ostream& operator<<(std::ostream& out, Direction const& d) {
    for (std::size_t const axis : d.order) {
        out << "xyz"[axis];
    }
    return out << (d.isBackwards ? "Backwards" : "Forwards");
}

std::vector<Direction> allDirections() {
    std::vector<Direction> directions;
    for (VolumeLayout const& layout : plainLayouts()) {
        directions.push_back({layout.order, layout.backwards[0]});
    }
    return directions;
}

class SlabReaderInDirection : public testing::TestWithParam<Direction> {
  protected:
    // Makes a volume `along` samples long on its densest axis.
    static NoiseGrid makeVolume(int along, int middle, int slow, int spacing) {
        Direction const& direction = GetParam();
        Triple size{};
        size[direction.order[0]] = along;
        size[direction.order[1]] = middle;
        size[direction.order[2]] = slow;
        std::array<bool, 3> backwards{};
        backwards.fill(direction.isBackwards);
        return NoiseGrid(size, {direction.order, backwards, spacing, 1});
    }
};

TEST_P(SlabReaderInDirection, EachSampleIsAtItsPlaceAndNothingElse) {
    for (int spacing = 1; spacing <= 9; ++spacing) {
        for (int const along : {8, 9, 12, 15, 16, 17, 31, 63, 64, 65, 127, 128, 129}) {
            for (auto const& [middle, slow] : {std::pair{1, 1}, {3, 9}, {10, 2}, {8, 3}}) {
                SCOPED_TRACE(testing::Message() << along << " x " << middle << " x " << slow << " by " << spacing);
                NoiseGrid const volume = makeVolume(along, middle, slow, spacing);
                ReadPlan const plan = makeReadPlan(volume.grid());
                ASSERT_EQ(plan.axis, static_cast<ReadPlan::Axis>(GetParam().order[0]));
                expectAllSlabs(volume.grid(), plan);
            }
        }
    }
}

TEST_P(SlabReaderInDirection, TheOtherAxesMayBeOfAnyLength) {
    for (int const across : {1, 2, 7, 8, 9, 15, 16, 17, 63, 64, 65}) {
        for (int const spacing : {1, 2, 5}) {
            SCOPED_TRACE(testing::Message() << across << " across, by " << spacing);
            for (NoiseGrid const& volume : {makeVolume(11, across, 5, spacing), makeVolume(11, 5, across, spacing)}) {
                expectAllSlabs(volume.grid(), makeReadPlan(volume.grid()));
            }
        }
    }
}

TEST_P(SlabReaderInDirection, TheFirstReadMayBeShort) {
    NoiseGrid const volume = makeVolume(140, 20, 30, 1);
    ReadPlan plan = makeReadPlan(volume.grid());
    for (std::int64_t const first : {1, 2, 7, 8, 9, 15, 16, 17, 100, 127, 128}) {
        SCOPED_TRACE(first);
        plan.slabsOfFirstRead = std::min(first, plan.slabsPerRead);
        expectAllSlabs(volume.grid(), plan);
    }
}

TEST_P(SlabReaderInDirection, AskingAheadChangesNothing) {
    for (int const along : {13, 40, 130}) {
        NoiseGrid const volume = makeVolume(along, 19, 21, 2);
        ReadPlan plan = makeReadPlan(volume.grid());
        for (bool const asksAhead : {false, true}) {
            plan.asksAhead = asksAhead;
            expectAllSlabs(volume.grid(), plan);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, SlabReaderInDirection, testing::ValuesIn(allDirections()),
                         testing::PrintToStringParamName());

} // namespace
