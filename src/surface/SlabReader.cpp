// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SlabReader.h"

#include "SampleRun.h"

#include <algorithm>
#include <cstdlib>
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

// Asks for the eight rows of each of a block's eight planes, part by part, to have them near when they are used. Any
// address will do: one that is not there is ignored.
template <unsigned int Distance>
void prefetchRows(unsigned char const* block, std::ptrdiff_t row, std::ptrdiff_t plane, std::int64_t part) {
    constexpr std::int64_t kRowsPerPart = 4;
    for (std::int64_t i = part * kRowsPerPart; i < (part + 1) * kRowsPerPart; ++i) {
        unsigned char const* const start = block + i / kTileSide * row + i % kTileSide * plane;
        for (std::int64_t voxel = 0; voxel < kLinePair * Distance; voxel += kLine) {
            // Into the second-level cache: in the first, rows a power of two apart would push each other out.
            __builtin_prefetch(start + voxel, 0, 2);
        }
    }
}

// Returns how many samples there are from `sample` to the end of its pair of lines; 0 where the next lies beyond it.
std::int64_t samplesToPairEnd(unsigned char const* sample, std::ptrdiff_t stride) {
    auto const place = static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(sample) % kLinePair);
    return (stride > 0 ? kLinePair - place : place + 1) / std::abs(stride);
}

} // namespace

SlabReader::SlabReader(SampleGrid const& grid) : _grid(grid), _slabsPerRead(1), _slabsOfFirstRead(0) {
    // Rows of several slabs that lie side by side make runs long enough for the hardware to prefetch.
    constexpr std::int64_t kRowsPerRun = 8;
    auto const [axis, stride] = nearestNeighbors();
    _read = readAlong(axis, std::abs(stride));
    _isBackwards = stride < 0;
    _toLowest = _isBackwards ? (kTileSide - 1) * stride : 0;
    if (axis == Axis::kY && std::abs(stride) < kLine) {
        // As many slabs as voxels come together: with fewer, memory would be fetched more than once.
        _slabsPerRead = std::min(kLinePair, grid.count.y);
        // After the first read all start with a pair of lines, if rows do.
        _slabsOfFirstRead = samplesToPairEnd(grid.first, stride);
    } else if (std::abs(grid.stride.y) < std::max(std::abs(grid.stride.x), std::abs(grid.stride.z))) {
        _slabsPerRead = std::min(kRowsPerRun, grid.count.y);
    }
    if (_slabsOfFirstRead == 0) {
        _slabsOfFirstRead = _slabsPerRead;
    }
}

// Finds the axis whose neighbours are nearest in memory, of those that are long enough for a run.
SlabReader::Direction SlabReader::nearestNeighbors() const {
    Direction nearest{Axis::kX, 0};
    auto const consider = [&nearest](Axis axis, std::int64_t count, std::ptrdiff_t stride) {
        bool const isNearer = nearest.stride == 0 || std::abs(stride) < std::abs(nearest.stride);
        if (count >= kTileSide && stride != 0 && isNearer) {
            nearest = {axis, stride};
        }
    };
    consider(Axis::kX, _grid.count.x, _grid.stride.x);
    consider(Axis::kY, _grid.count.y, _grid.stride.y);
    consider(Axis::kZ, _grid.count.z, _grid.stride.z);
    return nearest;
}

template <unsigned int Distance> SlabReader::Read SlabReader::readAlong(Axis axis) {
    switch (axis) {
    case Axis::kX:
        return &SlabReader::readAlongX<Distance>;
    case Axis::kY:
        return &SlabReader::readAlongY<Distance>;
    default:
        return &SlabReader::readAlongZ<Distance>;
    }
}

SlabReader::Read SlabReader::readAlong(Axis axis, std::ptrdiff_t distance) {
    switch (distance) {
    case 1:
        return readAlong<1>(axis);
    case 2:
        return readAlong<2>(axis);
    case 3:
        return readAlong<3>(axis);
    case 4:
        return readAlong<4>(axis);
    default:
        return readAlong<0>(axis);
    }
}

template <unsigned int Distance>
void SlabReader::readAlongX(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
        for (std::int64_t i = y; i < y + count; ++i) {
            BitTile* tile = ring.slab(i) + z / kTileSide;
            if constexpr (Distance == 0) {
                for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide, tile += ring.octets) {
                    *tile = gatherTile(x, i, z);
                }
            } else {
                unsigned char const* const row = _grid.at(0, i, z) + _toLowest;
                withCount(z, _grid.count.z, [&](auto planes) {
                    for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide, tile += ring.octets) {
                        RunPlace const run(x, _grid.count.x);
                        BitTile const bits =
                            stackRuns<Distance>(row + run.start * _grid.stride.x, _grid.stride.z, planes);
                        *tile = sortedLanes<Distance>(bits, _isBackwards) >> (kTileSide * run.surplus);
                    }
                });
            }
        }
    }
}

template <unsigned int Distance>
void SlabReader::readAlongZ(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide) {
        for (std::int64_t i = y; i < y + count; ++i) {
            BitTile* tile = ring.slab(i) + x / kTileSide * ring.octets;
            if constexpr (Distance == 0) {
                for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide, ++tile) {
                    *tile = gatherTile(x, i, z);
                }
            } else {
                unsigned char const* const column = _grid.at(x, i, 0) + _toLowest;
                withCount(x, _grid.count.x, [&](auto lanes) {
                    for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide, ++tile) {
                        RunPlace const run(z, _grid.count.z);
                        BitTile const bits =
                            packRuns<Distance>(column + run.start * _grid.stride.z, _grid.stride.x, lanes);
                        *tile = lowered(sortedPlanes<Distance>(bits, _isBackwards), run.surplus);
                    }
                });
            }
        }
    }
}

template <unsigned int Distance>
void SlabReader::readAlongY(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    // Blocks that are neighbours in memory follow each other.
    if (std::abs(_grid.stride.x) < std::abs(_grid.stride.z)) {
        for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
            for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide) {
                readBlockAlongY<Distance>(x, y, z, count, ring, kTileSide * _grid.stride.x);
            }
        }
    } else {
        for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide) {
            for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
                readBlockAlongY<Distance>(x, y, z, count, ring, kTileSide * _grid.stride.z);
            }
        }
    }
}

// Reads one tile of each slab: runs along y are stacked as those along x are, and their lanes handed out to the slabs.
template <unsigned int Distance>
void SlabReader::readBlockAlongY(std::int64_t x, std::int64_t y, std::int64_t z, std::int64_t count,
                                 SlabRing const& ring, std::ptrdiff_t toNextBlock) const {
    std::int64_t const place = x / kTileSide * ring.octets + z / kTileSide;
    if constexpr (Distance == 0) {
        for (std::int64_t i = y; i < y + count; ++i) {
            ring.slab(i)[place] = gatherTile(x, i, z);
        }
    } else {
        unsigned char const* const block = _grid.at(x, 0, z) + _toLowest;
        auto const lanes = std::min(kTileSide, _grid.count.x - x);
        withCount(z, _grid.count.z, [&](auto planes) {
            for (std::int64_t i = y; i < y + count; i += kTileSide) {
                // Runs that start early, or end late, only write again, or ahead, what belongs into their slabs.
                std::int64_t const start = RunPlace(i, _grid.count.y).start;
                unsigned char const* row = block + start * _grid.stride.y;
                prefetchRows<Distance>(block + toNextBlock + y * _grid.stride.y, _grid.stride.x, _grid.stride.z,
                                       (i - y) / kTileSide);
                BitTile words[kTileSide] = {};
                for (std::int64_t lane = 0; lane < lanes; ++lane, row += _grid.stride.x) {
                    words[lane] = stackRuns<Distance>(row, _grid.stride.z, planes);
                }
                transposeLanes(words);
                if (_isBackwards) {
                    std::reverse(words, words + kTileSide);
                }
                BitTile* tile = ring.slab(start) + place;
                for (unsigned int j = 0; j < kTileSide; ++j, tile = ring.inNextSlab(tile)) {
                    *tile = words[SampleRun<Distance>::place(j)];
                }
            }
        });
    }
}

// Reads a tile sample by sample.
BitTile SlabReader::gatherTile(std::int64_t x, std::int64_t y, std::int64_t z) const {
    std::int64_t const lanes = std::min(kTileSide, _grid.count.x - x);
    std::int64_t const planes = std::min(kTileSide, _grid.count.z - z);
    BitTile tile = 0;
    for (std::int64_t lane = lanes; lane-- > 0;) {
        unsigned char const* const bottom = _grid.at(x + lane, y, z);
        unsigned int bits = 0;
        for (std::int64_t j = planes; j-- > 0;) {
            bits = bits + bits + (bottom[j * _grid.stride.z] & 1U);
        }
        tile = tile << 8U | bits;
    }
    return tile;
}

} // namespace tamo
