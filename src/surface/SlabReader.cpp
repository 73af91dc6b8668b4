// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SlabReader.h"

#include "SampleRun.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <type_traits>

namespace tamo {

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

// Memory comes in lines, and these in pairs: on common machines a line alone costs as much as the whole pair.
constexpr std::int64_t kLine = 64;
constexpr std::int64_t kLinePair = 2 * kLine;

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

// Returns how many samples from `sample` on, `stride` apart, lie in its pair of lines.
std::int64_t samplesInPair(unsigned char const* sample, std::ptrdiff_t stride) {
    auto const place = static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(sample) % kLinePair);
    return (stride < 0 ? place : kLinePair - 1 - place) / std::max(std::abs(stride), std::ptrdiff_t{1}) + 1;
}

} // namespace

SlabReader::SlabReader(SampleGrid const& grid)
    : _grid(grid), _axis(Axis::kX), _stride(0), _slabsPerRead(1), _slabsOfFirstRead(1), _asksAhead(false) {
    findNearestNeighbors();
    chooseSlabsPerRead();
    chooseWhatToAskFor();
    _read = readerOfRuns();
}

// Finds the axis whose neighbours are nearest in memory, of those that are long enough for a run.
void SlabReader::findNearestNeighbors() {
    std::ptrdiff_t nearest = std::numeric_limits<std::ptrdiff_t>::max();
    auto const consider = [&](Axis axis, std::int64_t count, std::ptrdiff_t stride) {
        if (count >= kTileSide && std::abs(stride) < nearest) {
            nearest = std::abs(stride);
            _axis = axis;
            _stride = stride;
        }
    };
    consider(Axis::kX, _grid.count.x, _grid.stride.x);
    consider(Axis::kY, _grid.count.y, _grid.stride.y);
    consider(Axis::kZ, _grid.count.z, _grid.stride.z);
}

void SlabReader::chooseSlabsPerRead() {
    auto const slabsIn = [&](std::int64_t voxels) {
        std::int64_t const toNextSlab = std::max(std::abs(_grid.stride.y), std::ptrdiff_t{1});
        return std::clamp(voxels / toNextSlab / kTileSide * kTileSide, kTileSide, kLinePair);
    };
    if (_axis == Axis::kY) {
        // As many slabs as voxels come together: with fewer, memory would be fetched more than once.
        constexpr std::int64_t kPieceOfRow = 1024;
        _slabsPerRead = slabsIn(kPieceOfRow);
        // After the first read all start with a pair of lines, or near it, if rows do.
        _slabsOfFirstRead = std::abs(_stride) <= kLine ? samplesInPair(_grid.first, _stride) : _slabsPerRead;
    } else {
        if (std::abs(_grid.stride.y) < std::max(std::abs(_grid.stride.x), std::abs(_grid.stride.z))) {
            // Rows of several slabs lie side by side: together they are long enough for the hardware to prefetch.
            constexpr std::int64_t kPieceOfRows = 1024;
            _slabsPerRead = slabsIn(kPieceOfRows);
        }
        _slabsOfFirstRead = _slabsPerRead;
    }
    _slabsPerRead = std::min(_slabsPerRead, _grid.count.y);
}

// Decides whether the lines of the next slab, or of the next block, are asked for ahead of their use.
void SlabReader::chooseWhatToAskFor() {
    std::int64_t const distance = std::abs(_stride);
    if (_axis == Axis::kY) {
        // Rows that share a line are one piece of memory, which the hardware prefetches by itself. Samples more than a
        // line apart need few of the lines between the first and the last.
        bool const isOnePiece = std::min(std::abs(_grid.stride.x), std::abs(_grid.stride.z)) <= kLine;
        _asksAhead = distance <= kLine && !isOnePiece;
        return;
    }
    // A step leaves out rows and whole slabs, which ends the streams that the hardware follows. Contiguous samples do
    // without: with so little to read in a line, prefetching costs more than it gains.
    bool const isSpread = distance > 1 && distance * kTileSide <= kLine;
    // What is read between asking and use must not push out what was asked for.
    constexpr std::int64_t kMostAhead = 1 << 20;
    std::int64_t const rows = _slabsPerRead > 1 ? kTileSide : _axis == Axis::kX ? _grid.count.z : _grid.count.x;
    std::int64_t const samples = _axis == Axis::kX ? _grid.count.x : _grid.count.z;
    _asksAhead = isSpread && rows <= kMostAhead / kLine && samples <= kMostAhead / (rows * distance);
}

// Asks for the lines of the next slab that lie as those of the runs at `first` do, in `rows` rows, `apart` from each
// other; `place` is the runs' distance from the start of their rows.
void SlabReader::askForNextSlab(unsigned char const* first, std::ptrdiff_t place, std::ptrdiff_t apart,
                                unsigned int rows) const {
    bool const isFirstOfLine = asAddress(place) % kLine < asAddress(kTileSide * std::abs(_stride));
    for (unsigned int j = 0; isFirstOfLine && j < rows; ++j) {
        prefetch(reinterpret_cast<std::uintptr_t>(first) + asAddress(_grid.stride.y) + j * asAddress(apart));
    }
}

template <typename Run> SlabReader::Read SlabReader::readerOf() const {
    switch (_axis) {
    case Axis::kX:
        return &SlabReader::readAlongX<Run>;
    case Axis::kY:
        return &SlabReader::readAlongY<Run>;
    default:
        return &SlabReader::readAlongZ<Run>;
    }
}

SlabReader::Read SlabReader::readerOfRuns() const {
    switch (std::abs(_stride)) {
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
    Run const run(_stride);
    // Copies, as the compiler cannot tell that no tile is written over the originals.
    SampleGrid const grid = _grid;
    bool const asksAhead = _asksAhead;
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
    Run const run(_stride);
    SampleGrid const grid = _grid;
    bool const asksAhead = _asksAhead;
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
    Run const run(_stride);
    std::int64_t const y = block.y;
    std::int64_t const tileInSlab = block.x / kTileSide * ring.octets + block.z / kTileSide;
    auto const lanes = std::min(kTileSide, _grid.count.x - block.x);
    bool const hasNext = next.x < _grid.count.x && next.z < _grid.count.z;
    bool const asksAhead = _asksAhead && hasNext;
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

} // namespace tamo
