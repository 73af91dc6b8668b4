// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"
#include "SampleGrid.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tamo {

/// The slabs (planes of constant y) of a sample grid that are at hand, as tiles with lanes along x.
///
/// A slab's tiles stand lane block by lane block, each from the lowest z up: tile `block * octets + octet` holds
/// samples x = 8 block to 8 block + 7, z = 8 octet to 8 octet + 7; samples outside the grid are 0. Slab y takes the
/// place of slab y - `size`.
struct SlabRing {
    [[nodiscard]] BitTile* slab(std::int64_t y) const { return tiles + y % size * slabSize; }

    /// Returns the place in the following slab of what `tile` is in its own.
    [[nodiscard]] BitTile* inNextSlab(BitTile* tile) const {
        BitTile* const next = tile + slabSize;
        return next < tiles + size * slabSize ? next : next - size * slabSize;
    }

    /// `size` slabs of `slabSize` tiles, all 0 before the first slab is read.
    BitTile* tiles;
    std::int64_t size;
    std::int64_t slabSize;
    std::int64_t octets;
};

/// Reads slabs of a sample grid into tiles.
///
/// Samples are read in runs of eight along the axis on which they are nearest in memory, nothing before the first or
/// behind the last of a row. Of a voxel, the lowest bit counts.
class SlabReader {
  public:
    /// The grid needs eight samples along one axis at least.
    explicit SlabReader(SampleGrid const& grid);

    /// Returns how many slabs one call of `read` fills at most, so that memory is read in long pieces.
    [[nodiscard]] std::int64_t slabsPerRead() const { return _slabsPerRead; }

    /// Returns how many slabs should be read after the first `y`.
    [[nodiscard]] std::int64_t slabsFrom(std::int64_t y) const {
        return std::min(y == 0 ? _slabsOfFirstRead : _slabsPerRead, _grid.count.y - y);
    }

    /// Fills slabs y to y + count - 1 of the ring, count being `slabsFrom(y)`; the ring has room for `slabsPerRead()` +
    /// 1, and keeps slab y - 1. Slabs before and behind those may be written as well, with what belongs there: a run is
    /// as long as it is, and `slabsPerRead()` is a multiple of its length, or all slabs.
    void read(std::int64_t y, std::int64_t count, SlabRing const& ring) const { (this->*_read)(y, count, ring); }

  private:
    using Read = void (SlabReader::*)(std::int64_t y, std::int64_t count, SlabRing const& ring) const;

    enum class Axis {
        kX,
        kY,
        kZ
    };

    void findNearestNeighbors();
    void chooseSlabsPerRead();
    void chooseWhatToAskFor();
    void askForNextSlab(unsigned char const* first, std::ptrdiff_t place, std::ptrdiff_t apart,
                        unsigned int rows) const;
    [[nodiscard]] Read readerOfRuns() const;

    template <typename Run> [[nodiscard]] Read readerOf() const;
    template <typename Run> void readAlongX(std::int64_t y, std::int64_t count, SlabRing const& ring) const;
    template <typename Run> void readAlongY(std::int64_t y, std::int64_t count, SlabRing const& ring) const;
    template <typename Run> void readAlongZ(std::int64_t y, std::int64_t count, SlabRing const& ring) const;

    template <typename Run>
    void readBlockAlongY(GLtVec3<std::int64_t> const& block, GLtVec3<std::int64_t> const& next, std::int64_t count,
                         SlabRing const& ring) const;

    SampleGrid _grid;
    /// The axis of the runs, and their address distance between samples.
    Axis _axis;
    std::ptrdiff_t _stride;
    Read _read;
    std::int64_t _slabsPerRead;
    std::int64_t _slabsOfFirstRead;
    /// Whether lines of the next slab, or the next block, are prefetched.
    bool _asksAhead;
};

} // namespace tamo
