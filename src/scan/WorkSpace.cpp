// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "WorkSpace.h"

#include <algorithm>
#include <limits>
#include <new>

namespace tamo::scan {

namespace {

// Sides go up to 2^32 - 1, so that sizes may pass 64 bits: this stands for all that no memory holds.
constexpr std::int64_t kPastAllMemory = std::numeric_limits<std::int64_t>::max();

std::int64_t sum(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    return __builtin_add_overflow(a, b, &result) ? kPastAllMemory : result;
}

std::int64_t product(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    return __builtin_mul_overflow(a, b, &result) ? kPastAllMemory : result;
}

// Cell k = n of a column of n samples needs a plane more than there are samples.
std::int64_t octetsOf(SampleGrid const& grid) { return grid.count.z / kTileSide + 1; }

// The sizes of the parts, in tiles.
struct Sizes {
    Sizes(SampleGrid const& grid, ReadPlan const& plan)
        // Behind the last lane block of a row stands one more, for the lanes next to the last.
        : slab(product(tilesFor(grid.count.x) + 1, octetsOf(grid))),
          side(product(tilesFor(grid.count.y) + 1, octetsOf(grid))),
          // Tiles are turned by the eight.
          cut(octetsOf(grid) + kTileSide - 1), ringSlabs(plan.slabsPerRead + 1),
          // Beside the ring a copy of slab 0; for each cut tile its cells, eight words of configurations and its place.
          all(sum(product(ringSlabs + 1, slab), sum(product(2, side), (kTileSide + 2) * cut))) {}

    std::int64_t slab;
    std::int64_t side;
    std::int64_t cut;
    std::int64_t ringSlabs;
    std::int64_t all;
};

} // namespace

std::int64_t WorkSpace::bytesFor(SampleGrid const& grid, ReadPlan const& plan) {
    return product(Sizes(grid, plan).all, sizeof(BitTile));
}

// The array is left as it is found: its part that is used is cleared below. NOLINTNEXTLINE(*-member-init)
WorkSpace::WorkSpace(SampleGrid const& grid, ReadPlan const& plan) {
    Sizes const sizes(grid, plan);
    BitTile* memory = _small.data();
    if (sizes.all > static_cast<std::int64_t>(_small.size())) {
        std::int64_t const samples = product(product(grid.count.x, grid.count.y), grid.count.z);
        if (bytesFor(grid, plan) > samples || bytesFor(grid, plan) == kPastAllMemory) {
            return;
        }
        _large.reset(new (std::nothrow) BitTile[static_cast<std::size_t>(sizes.all)]);
        memory = _large.get();
        if (memory == nullptr) {
            return;
        }
    }
    std::fill_n(memory, sizes.all, BitTile{0});
    _ring = {nullptr, sizes.ringSlabs, sizes.slab, octetsOf(grid)};
    carve(memory, sizes.side, sizes.cut);
    _isTaken = true;
}

void WorkSpace::carve(BitTile* memory, std::int64_t sideSize, std::int64_t cutRoom) {
    auto const take = [&memory](std::int64_t size) {
        BitTile* const part = memory;
        memory += size;
        return part;
    };
    _ring.tiles = take(_ring.size * _ring.slabSize);
    _firstSlab = take(_ring.slabSize);
    _lowerSide = take(sideSize);
    _upperSide = take(sideSize);
    _cut.cells = take(cutRoom);
    _cut.configurations = take(kTileSide * cutRoom);
    _cut.firstCell = take(cutRoom);
}

} // namespace tamo::scan
