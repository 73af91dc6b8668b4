// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SlabReader.h"

#include "SampleRun.h"

#include <algorithm>
#include <cstdlib>
#include <type_traits>

namespace tamo::scan {

namespace {

// Eight as a type, which lets the compiler unroll what most tiles need.
using Eight = std::integral_constant<unsigned int, kTileSide>;

// Where the run with the samples from `place` on starts: earlier, where it would end beyond the last of `count`.
struct RunPlace {
    RunPlace(std::int64_t place, std::int64_t count)
        : start(std::min(place, count - kTileSide)), surplus(static_cast<unsigned int>(place - start)) {}

    std::int64_t start;
    // How many of its samples come before `place`.
    unsigned int surplus;
};

// Calls `read` with the number of the samples from `place` on, eight at most, as a type where it is eight.
template <typename ReadSamples> void withCount(std::int64_t place, std::int64_t count, ReadSamples const& read) {
    if (count - place >= kTileSide) {
        read(Eight());
    } else {
        read(static_cast<unsigned int>(count - place));
    }
}

// Addresses are numbers where they may lie outside of the volume: a prefetch of what is not there does nothing.
std::uintptr_t asAddress(std::ptrdiff_t distance) { return static_cast<std::uintptr_t>(distance); }

// Into the second-level cache: in the first, rows a power of two apart would push each other out.
void prefetch(std::uintptr_t address) {
    // Nothing is read or optimised through the pointer. NOLINTNEXTLINE(performance-no-int-to-ptr)
    __builtin_prefetch(reinterpret_cast<void const*>(address), 0, 2);
}

// Asks for the rows of the block behind one while that is read: part by part, so that not too many are under way at a
// time.
class RowsAhead {
  public:
    // `start` is the first of `count` samples of the first row of the block to ask for, which has `lanes` rows in each
    // of `planes` planes.
    RowsAhead(std::uintptr_t start, std::int64_t count, std::int64_t lanes, std::int64_t planes,
              GLtVec3<std::ptrdiff_t> const& stride)
        : _row(asAddress(stride.x)), _plane(asAddress(stride.z)), _planes(planes), _parts(tilesFor(count)),
          _rows(lanes * planes) {
        std::ptrdiff_t const toLast = (count - 1) * stride.y;
        _lowest = start + asAddress(std::min(toLast, std::ptrdiff_t{0}));
        _bytes = asAddress(std::abs(toLast)) + 1;
    }

    void fetchPart() {
        std::int64_t const end = ++_part * _rows / _parts;
        for (; _next < end; ++_next) {
            std::uintptr_t const row =
                _lowest + asAddress(_next / _planes) * _row + asAddress(_next % _planes) * _plane;
            std::uintptr_t const lines = (row % kLine + _bytes + kLine - 1) / kLine;
            for (std::uintptr_t line = 0; line < lines; ++line) {
                prefetch(row + line * kLine);
            }
        }
    }

  private:
    std::uintptr_t _lowest;
    std::uintptr_t _bytes;
    std::uintptr_t _row;
    std::uintptr_t _plane;
    std::int64_t _planes;
    std::int64_t _parts;
    std::int64_t _rows;
    std::int64_t _part = 0;
    std::int64_t _next = 0;
};

} // namespace

SlabReader::SlabReader(SampleGrid const& grid, ReadPlan const& plan)
    : _grid(grid), _plan(plan), _read(readerOfRuns()) {}

// Asks for the lines of the next slab that lie as those of the runs at `first` do, in `rows` rows, `apart` from each
// other; `place` is the runs' distance from the start of their rows.
void SlabReader::askForNextSlab(unsigned char const* first, std::ptrdiff_t place, std::ptrdiff_t apart,
                                unsigned int rows) const {
    bool const isFirstOfLine = asAddress(place) % kLine < asAddress(kTileSide * std::abs(_plan.stride));
    for (unsigned int j = 0; isFirstOfLine && j < rows; ++j) {
        prefetch(reinterpret_cast<std::uintptr_t>(first) + asAddress(_grid.stride.y) + j * asAddress(apart));
    }
}

template <typename Run> SlabReader::Read SlabReader::readerOf() const {
    switch (_plan.axis) {
    case ReadPlan::Axis::kX:
        return &SlabReader::readAlongX<Run>;
    case ReadPlan::Axis::kY:
        return &SlabReader::readAlongY<Run>;
    default:
        return &SlabReader::readAlongZ<Run>;
    }
}

SlabReader::Read SlabReader::readerOfRuns() const {
    switch (std::abs(_plan.stride)) {
    case 1:
        return readerOf<NearRun<1>>();
    case 2:
        return readerOf<NearRun<2>>();
    case 3:
        return readerOf<NearRun<3>>();
    case 4:
        return readerOf<NearRun<4>>();
    default:
        return readerOf<FarRun>();
    }
}

template <typename Run> void SlabReader::readAlongX(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    Run const run(_plan.stride);
    // Copies, as the compiler cannot tell that no tile is written over the originals.
    SampleGrid const grid = _grid;
    bool const asksAhead = _plan.asksAhead;
    for (std::int64_t z = 0; z < grid.count.z; z += kTileSide) {
        withCount(z, grid.count.z, [&](auto planes) {
            for (std::int64_t i = y; i < y + count; ++i) {
                BitTile* tile = ring.slab(i) + z / kTileSide;
                unsigned char const* const row = grid.at(0, i, z) + run.start();
                for (std::int64_t x = 0; x < grid.count.x; x += kTileSide, tile += ring.octets) {
                    RunPlace const place(x, grid.count.x);
                    std::ptrdiff_t const start = place.start * grid.stride.x;
                    if (asksAhead) {
                        askForNextSlab(row + start, start, grid.stride.z, planes);
                    }
                    BitTile const bits = stackRuns(run, row + start, grid.stride.z, planes);
                    *tile = run.sortedLanes(bits) >> (kTileSide * place.surplus);
                }
            }
        });
    }
}

template <typename Run> void SlabReader::readAlongZ(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    Run const run(_plan.stride);
    SampleGrid const grid = _grid;
    bool const asksAhead = _plan.asksAhead;
    for (std::int64_t x = 0; x < grid.count.x; x += kTileSide) {
        withCount(x, grid.count.x, [&](auto lanes) {
            for (std::int64_t i = y; i < y + count; ++i) {
                BitTile* tile = ring.slab(i) + x / kTileSide * ring.octets;
                unsigned char const* const column = grid.at(x, i, 0) + run.start();
                for (std::int64_t z = 0; z < grid.count.z; z += kTileSide, ++tile) {
                    RunPlace const place(z, grid.count.z);
                    std::ptrdiff_t const start = place.start * grid.stride.z;
                    if (asksAhead) {
                        askForNextSlab(column + start, start, grid.stride.x, lanes);
                    }
                    BitTile const bits = packRuns(run, column + start, grid.stride.x, lanes);
                    *tile = lowered(run.sortedPlanes(bits), place.surplus);
                }
            }
        });
    }
}

template <typename Run> void SlabReader::readAlongY(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    // Blocks that are neighbours in memory follow each other.
    if (std::abs(_grid.stride.x) < std::abs(_grid.stride.z)) {
        for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
            for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide) {
                readBlockAlongY<Run>({x, y, z}, {x + kTileSide, y, z}, count, ring);
            }
        }
    } else {
        for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide) {
            for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
                readBlockAlongY<Run>({x, y, z}, {x, y, z + kTileSide}, count, ring);
            }
        }
    }
}

// Reads one tile of each slab: runs along y are stacked as those along x are, and their lanes handed out to the slabs.
template <typename Run>
void SlabReader::readBlockAlongY(GLtVec3<std::int64_t> const& block, GLtVec3<std::int64_t> const& next,
                                 std::int64_t count, SlabRing const& ring) const {
    Run const run(_plan.stride);
    std::int64_t const y = block.y;
    std::int64_t const tileInSlab = block.x / kTileSide * ring.octets + block.z / kTileSide;
    auto const lanes = std::min(kTileSide, _grid.count.x - block.x);
    bool const hasNext = next.x < _grid.count.x && next.z < _grid.count.z;
    bool const asksAhead = _plan.asksAhead && hasNext;
    RowsAhead ahead(asksAhead ? reinterpret_cast<std::uintptr_t>(_grid.at(next.x, y, next.z)) : 0, count,
                    std::min(kTileSide, _grid.count.x - next.x), std::min(kTileSide, _grid.count.z - next.z),
                    _grid.stride);
    withCount(block.z, _grid.count.z, [&](auto planes) {
        for (std::int64_t i = y; i < y + count; i += kTileSide) {
            if (asksAhead) {
                ahead.fetchPart();
            }
            // Runs that start early, or end late, only write again, or ahead, what belongs into their slabs.
            std::int64_t const start = RunPlace(i, _grid.count.y).start;
            unsigned char const* const rows = _grid.at(block.x, start, block.z) + run.start();
            BitTile words[kTileSide] = {};
            for (std::int64_t lane = 0; lane < lanes; ++lane) {
                words[lane] = stackRuns(run, rows + lane * _grid.stride.x, _grid.stride.z, planes);
            }
            transposeLanes(words);
            BitTile* tile = ring.slab(start) + tileInSlab;
            for (unsigned int j = 0; j < kTileSide; ++j, tile = ring.inNextSlab(tile)) {
                *tile = words[run.place(j)];
            }
        }
    });
}

} // namespace tamo::scan
