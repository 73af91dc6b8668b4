// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "NoiseGrid.h"

#include "src/scan/BitTile.h"
#include "src/scan/ReadPlan.h"
#include "src/scan/SlabRing.h"

#include <gtest/gtest.h>

#include <vector>

namespace tamo::test {

/// Owns a ring of slabs, as a scan of the grid by the plan needs it.
class RingMemory {
  public:
    RingMemory(scan::SampleGrid const& grid, scan::ReadPlan const& plan) {
        std::int64_t const octets = grid.count.z / 8 + 1;
        std::int64_t const slabSize = ((grid.count.x + 7) / 8 + 1) * octets;
        _tiles.resize(static_cast<std::size_t>((plan.slabsPerRead + 1) * slabSize));
        _ring = {_tiles.data(), plan.slabsPerRead + 1, slabSize, octets};
    }

    [[nodiscard]] scan::SlabRing const& ring() const { return _ring; }

  private:
    std::vector<scan::BitTile> _tiles;
    scan::SlabRing _ring{};
};

/// Returns whether the tiles hold slab y of the grid: each sample at its place, and 0 in all others.
inline bool isSlab(scan::SampleGrid const& grid, std::int64_t y, scan::SlabRing const& ring,
                   scan::BitTile const* tiles) {
    for (std::int64_t i = 0; i < ring.slabSize; ++i) {
        for (std::int64_t bit = 0; bit < 64; ++bit) {
            std::int64_t const x = i / ring.octets * 8 + bit / 8;
            std::int64_t const z = i % ring.octets * 8 + bit % 8;
            if ((tiles[i] >> static_cast<unsigned int>(bit) & 1U) != sampleOf(grid, x, y, z)) {
                ADD_FAILURE() << "sample (" << x << ", " << y << ", " << z << ")";
                return false;
            }
        }
    }
    return true;
}

} // namespace tamo::test
