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
/// Reads nothing before the first or behind the last sample of a row. Samples that are 1 to 4 bytes apart along an
/// axis, forwards or backwards, are read in runs of eight along that axis; others one by one. Of a voxel, the lowest
/// bit counts. The grid must outlive the reader.
class SlabReader {
  public:
    explicit SlabReader(SampleGrid const& grid);

    /// Returns how many slabs one call of `read` fills at most, so that memory is read in long runs.
    [[nodiscard]] std::int64_t slabsPerRead() const { return _slabsPerRead; }

    /// Returns how many slabs should be read after the first `y`.
    [[nodiscard]] std::int64_t slabsFrom(std::int64_t y) const {
        return std::min(y == 0 ? _slabsOfFirstRead : _slabsPerRead, _grid.count.y - y);
    }

    /// Fills slabs y to y + count - 1 of the ring, count being `slabsFrom(y)`.
    void read(std::int64_t y, std::int64_t count, SlabRing const& ring) const { (this->*_read)(y, count, ring); }

  private:
    using Read = void (SlabReader::*)(std::int64_t y, std::int64_t count, SlabRing const& ring) const;

    enum class Axis {
        kX,
        kY,
        kZ
    };

    /// The axis along which samples are read in runs, and their distance; 0 where there is none.
    struct Direction {
        Axis axis;
        std::ptrdiff_t stride;
    };

    [[nodiscard]] Direction nearestNeighbors() const;
    static Read readAlong(Axis axis, std::ptrdiff_t distance);

    // Distance 0 stands for samples too far apart for runs.
    template <unsigned int Distance> static Read readAlong(Axis axis);
    template <unsigned int Distance> void readAlongX(std::int64_t y, std::int64_t count, SlabRing const& ring) const;
    template <unsigned int Distance> void readAlongY(std::int64_t y, std::int64_t count, SlabRing const& ring) const;
    template <unsigned int Distance> void readAlongZ(std::int64_t y, std::int64_t count, SlabRing const& ring) const;

    template <unsigned int Distance>
    void readBlockAlongY(std::int64_t x, std::int64_t y, std::int64_t z, std::int64_t count, SlabRing const& ring,
                         std::ptrdiff_t toNextBlock) const;
    [[nodiscard]] BitTile gatherTile(std::int64_t x, std::int64_t y, std::int64_t z) const;

    SampleGrid const& _grid;
    Read _read;
    std::int64_t _slabsPerRead;
    std::int64_t _slabsOfFirstRead;
    /// Whether addresses fall along a run, and where its lowest address lies then, seen from its first sample.
    bool _isBackwards;
    std::ptrdiff_t _toLowest;
};

} // namespace tamo
