// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CellScan.h"

#include <new>

namespace tamo {

namespace {

// Sides go up to 2^32 - 1: a size past all memory must fail as an allocation, not wrap around.
std::int64_t checkedProduct(std::int64_t a, std::int64_t b) {
    constexpr std::int64_t kPastAllMemory = std::int64_t{1} << 56;
    std::int64_t product = 0;
    if (__builtin_mul_overflow(a, b, &product) || product > kPastAllMemory) {
        throw std::bad_alloc();
    }
    return product;
}

} // namespace

CellScan::CellScan(SampleGrid const& grid) : _grid(grid), _reader(grid), _cut{} {
    // Cell k = n of a column of n samples needs a plane more than there are samples.
    std::int64_t const octets = grid.count.z / kTileSide + 1;
    _ring.octets = octets;
    _ring.size = _reader.slabsPerRead() + 1;
    // Behind the last lane block of a row stands one more, for the lanes next to the last.
    _ring.slabSize = checkedProduct(tilesFor(grid.count.x) + 1, octets);
    std::int64_t const sideSize = checkedProduct(tilesFor(grid.count.y) + 1, octets);
    std::int64_t const room = octets + kTileSide - 1;
    std::int64_t const tiles = checkedProduct(_ring.size + 1, _ring.slabSize) + 2 * sideSize + (kTileSide + 2) * room;

    BitTile* next = _small.data();
    if (tiles <= static_cast<std::int64_t>(_small.size())) {
        std::fill_n(next, tiles, BitTile{0});
    } else {
        _large = std::make_unique<BitTile[]>(static_cast<std::size_t>(tiles));
        next = _large.get();
    }
    auto const take = [&next](std::int64_t size) {
        BitTile* const start = next;
        next += size;
        return start;
    };
    _ring.tiles = take(_ring.size * _ring.slabSize);
    _firstSlab = take(_ring.slabSize);
    _lowerSide = take(sideSize);
    _upperSide = take(sideSize);
    _cut.cells = take(room);
    _cut.configurations = take(kTileSide * room);
    _cut.firstCell = take(room);
}

// Keeps what the borders need of slab y, which is at hand only now.
void CellScan::keepBorder(std::int64_t y) {
    BitTile const* const slab = _ring.slab(y);
    if (y == 0) {
        std::copy_n(slab, _ring.slabSize, _firstSlab);
    }
    std::int64_t const lastX = _grid.count.x - 1;
    BitTile const* const lastBlock = slab + lastX / kTileSide * _ring.octets;
    auto const lastLane = static_cast<unsigned int>(lastX % kTileSide);
    auto const shift = static_cast<unsigned int>(kTileSide * (y % kTileSide));
    std::int64_t const side = y / kTileSide * _ring.octets;
    for (std::int64_t octet = 0; octet < _ring.octets; ++octet) {
        _lowerSide[side + octet] |= BitTile{laneOf(slab[octet], 0)} << shift;
        _upperSide[side + octet] |= BitTile{laneOf(lastBlock[octet], lastLane)} << shift;
    }
}

void CellScan::count(std::array<std::uint64_t, 256>& histogram) {
    countCells(histogram, [](BitTile const*) {});
}

std::uint64_t CellScan::countWithForeground(std::array<std::uint64_t, 256>& histogram) {
    std::uint64_t foreground = 0;
    countCells(histogram, [this, &foreground](BitTile const* slab) {
        for (std::int64_t tile = 0; tile < _ring.slabSize; ++tile) {
            foreground += countBits(slab[tile]);
        }
    });
    return foreground;
}

template <typename TakeSlab>
void CellScan::countCells(std::array<std::uint64_t, 256>& histogram, TakeSlab const& takeSlab) {
    // Neighbouring cells are often alike: counters of their own keep an increment from waiting for the one before it.
    std::array<std::array<std::uint64_t, 256>, 4> counters{};
    auto const take = [&counters](CutTiles& cut, std::int64_t) {
        for (std::size_t i = 0; i < cut.count; ++i) {
            BitTile const* const configurations = cut.configurations + kTileSide * i;
            for (BitTile cells = transposedTile(cut.cells[i]); cells != 0; cells &= cells - 1) {
                auto const place = static_cast<unsigned int>(__builtin_ctzll(cells));
                ++counters[place % 4][laneOf(configurations[place / kTileSide], place % kTileSide)];
            }
        }
    };
    forEachBlock(takeSlab, take, take);
    for (auto const& counter : counters) {
        for (std::size_t c = 0; c < counter.size(); ++c) {
            histogram[c] += counter[c];
        }
    }
    visitCorners([&histogram](std::int64_t, std::int64_t) {
        return [&histogram](unsigned char configuration, std::int64_t) { ++histogram[configuration]; };
    });
}

} // namespace tamo
