// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "CutTiles.h"
#include "ReadPlan.h"
#include "SampleGrid.h"
#include "SlabRing.h"

#include <array>
#include <cstdint>
#include <memory>

namespace tamo::scan {

/// The memory that a scan of a grid works in: sizes it, takes it at once, clears it, and carves it into its parts.
///
/// With n(a) samples along axis a and s slabs per read it is (s + 2) X Z / 8 + 2 Y Z / 8 + 10 Z + 560 bytes, where X
/// and Y are n(x) and n(y) rounded up to a multiple of 8, plus 8, and Z is n(z) rounded down, plus 8. For n = 1024 and
/// s = 8 that is 1.5 MiB. Where y is the densest axis, s is up to 128: 4.3 MiB for n = 512, 17 MiB for n = 1024. That
/// does not stay in a cache, but passes through it once; fewer slabs would fetch the volume itself several times. A
/// count is free to exchange axes, and never has y as the densest.
class WorkSpace {
  public:
    /// Takes the memory. Never throws: see `isTaken`.
    WorkSpace(SampleGrid const& grid, ReadPlan const& plan);
    WorkSpace(WorkSpace const&) = delete;
    WorkSpace& operator=(WorkSpace const&) = delete;

    /// Returns the number of bytes that the grid needs, or a number past all memory where 64 bits do not hold it.
    [[nodiscard]] static std::int64_t bytesFor(SampleGrid const& grid, ReadPlan const& plan);

    /// Returns whether the parts can be used. They cannot where there is no memory for them, nor where they would
    /// take more than a byte per sample, as for rows of few samples: such a grid is scanned without.
    [[nodiscard]] bool isTaken() const { return _isTaken; }

    // The parts, for one scan. All samples are background, and stay so where they are outside the grid.

    [[nodiscard]] SlabRing const& ring() { return _ring; }
    /// Returns the place for a copy of slab 0.
    [[nodiscard]] BitTile* firstSlab() { return _firstSlab; }
    /// Returns the place for the samples of the lowest x, and of the highest: a slab of constant x, with lanes along y.
    [[nodiscard]] BitTile* lowerSide() { return _lowerSide; }
    [[nodiscard]] BitTile* upperSide() { return _upperSide; }
    /// Returns room for the cut tiles of one lane block.
    [[nodiscard]] CutTiles const& cutTiles() { return _cut; }

  private:
    void carve(BitTile* memory, std::int64_t sideSize, std::int64_t cutRoom);

    SlabRing _ring;
    BitTile* _firstSlab = nullptr;
    BitTile* _lowerSide = nullptr;
    BitTile* _upperSide = nullptr;
    CutTiles _cut{};
    bool _isTaken = false;
    std::unique_ptr<BitTile[]> _large;
    /// For small grids: a page of stack instead of an allocation. Cleared as far as it is used.
    std::array<BitTile, 512> _small;
};

} // namespace tamo::scan
