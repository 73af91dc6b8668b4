// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SlabReader.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace tamo {

namespace {

/// Reads eight neighbouring bytes, the first into the least significant.
std::uint64_t loadEight(unsigned char const* bytes) {
    std::uint64_t value = 0;
    std::memcpy(&value, bytes, sizeof(value));
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    value = __builtin_bswap64(value);
#endif
    return value;
}

/// Packs eight bytes of 0 or 1 into one, the least significant first.
std::uint64_t packEight(std::uint64_t bytes) {
    // The factor moves each byte to a bit of its own in the product's top byte, and no sum carries into it.
    return (bytes * 0x0102040810204080U) >> 56U;
}

/// Returns the tile whose lanes are eight neighbouring bytes and whose planes are eight such rows, `rise` apart.
BitTile stackRows(unsigned char const* row, std::ptrdiff_t rise) {
    BitTile bits = loadEight(row);
    for (unsigned int j = 1; j < kTileSide; ++j) {
        bits |= loadEight(row + j * rise) << j;
    }
    return bits;
}

/// Returns the tile whose planes are eight neighbouring bytes and whose lanes are eight such columns, `sideways` apart.
BitTile packColumns(unsigned char const* column, std::ptrdiff_t sideways) {
    BitTile bits = 0;
    for (unsigned int lane = 0; lane < kTileSide; ++lane) {
        bits |= packEight(loadEight(column + lane * sideways)) << (kTileSide * lane);
    }
    return bits;
}

std::int64_t wholeTiles(std::int64_t samples) { return samples / kTileSide * kTileSide; }

} // namespace

SlabReader::SlabReader(SampleGrid const& grid)
    : _grid(grid), _fullX(wholeTiles(grid.count.x)), _fullZ(wholeTiles(grid.count.z)), _layout(Layout::kStrided),
      _slabsPerRead(1) {
    // Rows of several slabs that lie side by side make runs long enough for the hardware to prefetch.
    constexpr std::int64_t kRowsPerRun = 8;
    // Along y a run is as long as there are slabs to hold it: two lines, since lines are fetched in pairs.
    constexpr std::int64_t kVoxelsPerRun = 128;
    std::ptrdiff_t const farthest = std::max(std::abs(grid.stride.x), std::abs(grid.stride.z));
    bool const rowsAreClose = std::abs(grid.stride.y) < farthest;
    if (grid.stride.x == 1 || grid.stride.z == 1) {
        _layout = grid.stride.x == 1 ? Layout::kAlongX : Layout::kAlongZ;
        _slabsPerRead = std::min(rowsAreClose ? kRowsPerRun : 1, grid.count.y);
    } else if (grid.stride.y == 1) {
        _layout = Layout::kAlongY;
        _slabsPerRead = std::min(kVoxelsPerRun, grid.count.y);
    }
}

void SlabReader::read(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    switch (_layout) {
    case Layout::kAlongX:
        readAlongX(y, count, ring);
        break;
    case Layout::kAlongY:
        readAlongY(y, count, ring);
        break;
    case Layout::kAlongZ:
        readAlongZ(y, count, ring);
        break;
    case Layout::kStrided:
        readStrided(y, count, ring);
        break;
    }
}

void SlabReader::readAlongX(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
        for (std::int64_t i = y; i < y + count; ++i) {
            unsigned char const* row = _grid.at(0, i, z);
            BitTile* tile = ring.slab(i) + z / kTileSide;
            std::int64_t x = 0;
            for (; x < _fullX && z < _fullZ; x += kTileSide, row += kTileSide, tile += ring.octets) {
                *tile = stackRows(row, _grid.stride.z);
            }
            for (; x < _grid.count.x; x += kTileSide, tile += ring.octets) {
                *tile = gatherTile(x, i, z);
            }
        }
    }
}

void SlabReader::readAlongZ(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide) {
        for (std::int64_t i = y; i < y + count; ++i) {
            unsigned char const* column = _grid.at(x, i, 0);
            BitTile* tile = ring.slab(i) + x / kTileSide * ring.octets;
            std::int64_t z = 0;
            for (; z < _fullZ && x < _fullX; z += kTileSide, column += kTileSide, ++tile) {
                *tile = packColumns(column, _grid.stride.x);
            }
            for (; z < _grid.count.z; z += kTileSide, ++tile) {
                *tile = gatherTile(x, i, z);
            }
        }
    }
}

void SlabReader::readAlongY(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    // Blocks that are neighbours in memory follow each other.
    if (std::abs(_grid.stride.x) < std::abs(_grid.stride.z)) {
        for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
            for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide) {
                readBlockAlongY(x, y, z, count, ring);
            }
        }
    } else {
        for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide) {
            for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
                readBlockAlongY(x, y, z, count, ring);
            }
        }
    }
}

/// Reads one tile of each slab: rows along y are stacked as those along x are, and their lanes handed out to the slabs.
void SlabReader::readBlockAlongY(std::int64_t x, std::int64_t y, std::int64_t z, std::int64_t count,
                                 SlabRing const& ring) const {
    std::int64_t const tile = x / kTileSide * ring.octets + z / kTileSide;
    std::int64_t const end = y + count;
    if (x < _fullX && z < _fullZ) {
        for (; y + kTileSide <= end; y += kTileSide) {
            BitTile lanes[kTileSide];
            for (std::int64_t lane = 0; lane < kTileSide; ++lane) {
                lanes[lane] = stackRows(_grid.at(x + lane, y, z), _grid.stride.z);
            }
            transposeLanes(lanes);
            for (std::int64_t i = 0; i < kTileSide; ++i) {
                ring.slab(y + i)[tile] = lanes[i];
            }
        }
    }
    for (; y < end; ++y) {
        ring.slab(y)[tile] = gatherTile(x, y, z);
    }
}

void SlabReader::readStrided(std::int64_t y, std::int64_t count, SlabRing const& ring) const {
    for (std::int64_t i = y; i < y + count; ++i) {
        for (std::int64_t z = 0; z < _grid.count.z; z += kTileSide) {
            BitTile* tile = ring.slab(i) + z / kTileSide;
            for (std::int64_t x = 0; x < _grid.count.x; x += kTileSide, tile += ring.octets) {
                *tile = gatherTile(x, i, z);
            }
        }
    }
}

/// Reads a tile sample by sample: any strides, and the grid's ragged ends.
BitTile SlabReader::gatherTile(std::int64_t x, std::int64_t y, std::int64_t z) const {
    std::int64_t const lanes = std::min(kTileSide, _grid.count.x - x);
    std::int64_t const planes = std::min(kTileSide, _grid.count.z - z);
    BitTile tile = 0;
    for (std::int64_t lane = lanes; lane-- > 0;) {
        unsigned char const* const bottom = _grid.at(x + lane, y, z);
        unsigned int bits = 0;
        for (std::int64_t j = planes; j-- > 0;) {
            bits = bits + bits + bottom[j * _grid.stride.z];
        }
        tile = tile << 8U | (bits & 0xFFU);
    }
    return tile;
}

} // namespace tamo
