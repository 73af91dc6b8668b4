// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CellScan.h"

#include <algorithm>

namespace tamo::scan {

// Keeps what the borders need of the slab at hand, which a later one will take the place of.
void CellScan::keepBorder() {
    SlabRing const& ring = _space.ring();
    BitTile const* const slab = _walk.slab();
    std::int64_t const y = _walk.y();
    if (y == 0) {
        std::copy_n(slab, ring.slabSize, _space.firstSlab());
    }
    std::int64_t const lastX = _count.x - 1;
    BitTile const* const lastBlock = slab + lastX / kTileSide * ring.octets;
    auto const lastLane = static_cast<unsigned int>(lastX % kTileSide);
    auto const shift = static_cast<unsigned int>(kTileSide * (y % kTileSide));
    std::int64_t const side = y / kTileSide * ring.octets;
    for (std::int64_t octet = 0; octet < ring.octets; ++octet) {
        _space.lowerSide()[side + octet] |= BitTile{laneOf(slab[octet], 0)} << shift;
        _space.upperSide()[side + octet] |= BitTile{laneOf(lastBlock[octet], lastLane)} << shift;
    }
}

} // namespace tamo::scan
