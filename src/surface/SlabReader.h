// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"
#include "SampleGrid.h"

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

    /// `size` slabs of `slabSize` tiles, all 0 before the first slab is read.
    BitTile* tiles;
    std::int64_t size;
    std::int64_t slabSize;
    std::int64_t octets;
};

/// Reads slabs of a sample grid into tiles.
///
/// Reads each sample once, whatever the strides; where the neighbours along an axis are neighbours in memory, eight at
/// a time. A voxel other than 0 and 1 spoils its own tile and no other.
class SlabReader {
  public:
    explicit SlabReader(SampleGrid const& grid);

    /// Returns how many slabs one call of `read` should fill, so that memory is read in long runs.
    [[nodiscard]] std::int64_t slabsPerRead() const { return _slabsPerRead; }

    /// Fills slabs y to y + count - 1 of the ring.
    void read(std::int64_t y, std::int64_t count, SlabRing const& ring) const;

  private:
    enum class Layout {
        kAlongX,
        kAlongY,
        kAlongZ,
        kStrided
    };

    void readAlongX(std::int64_t y, std::int64_t count, SlabRing const& ring) const;
    void readAlongY(std::int64_t y, std::int64_t count, SlabRing const& ring) const;
    void readBlockAlongY(std::int64_t x, std::int64_t y, std::int64_t z, std::int64_t count,
                         SlabRing const& ring) const;
    void readAlongZ(std::int64_t y, std::int64_t count, SlabRing const& ring) const;
    void readStrided(std::int64_t y, std::int64_t count, SlabRing const& ring) const;
    [[nodiscard]] BitTile gatherTile(std::int64_t x, std::int64_t y, std::int64_t z) const;

    SampleGrid const& _grid;
    /// The numbers of samples that whole tiles cover.
    std::int64_t _fullX;
    std::int64_t _fullZ;
    Layout _layout;
    std::int64_t _slabsPerRead;
};

} // namespace tamo
