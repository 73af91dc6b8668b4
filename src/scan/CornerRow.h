// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"

#include <cstdint>

namespace tamo::scan {

/// One row of tiles beside or between which a row of cells lies: its lane i gives the corner `Corner` of the cell
/// plane's four (dx + 2 dy), its lane i + 1 the corner `NextCorner`.
template <unsigned int Corner, unsigned int NextCorner> class CornerRow {
  public:
    /// `tiles` has to be readable one lane block beyond the last with cells; what stands there does not count.
    CornerRow(BitTile const* tiles, std::int64_t octets) : _tiles(tiles), _octets(octets) {}

    [[nodiscard]] BitTile any(std::int64_t block, std::int64_t octet) const {
        return own(block, octet) | next(block, octet);
    }

    [[nodiscard]] BitTile all(std::int64_t block, std::int64_t octet) const {
        return own(block, octet) & next(block, octet);
    }

    /// Returns the row's corners in sample plane `plane` of octet 0, at their places among the four of a cell plane: a
    /// byte per lane.
    [[nodiscard]] BitTile cornersInPlane(std::int64_t block, unsigned int plane) const {
        constexpr BitTile kLowest = 0x0101010101010101U;
        return (own(block, 0) >> plane & kLowest) << Corner | (next(block, 0) >> plane & kLowest) << NextCorner;
    }

    /// Puts the row's corners to their places among the eight of a cell: the octet's planes to the upper four, the
    /// planes below each to the lower four.
    void putCorners(std::int64_t block, std::int64_t octet, BitTile (&corners)[kTileSide]) const {
        corners[4 + Corner] = own(block, octet);
        corners[4 + NextCorner] = next(block, octet);
        corners[Corner] = risen(corners[4 + Corner], octet > 0 ? own(block, octet - 1) : 0);
        corners[NextCorner] = risen(corners[4 + NextCorner], octet > 0 ? next(block, octet - 1) : 0);
    }

  private:
    [[nodiscard]] BitTile own(std::int64_t block, std::int64_t octet) const { return _tiles[block * _octets + octet]; }
    [[nodiscard]] BitTile next(std::int64_t block, std::int64_t octet) const {
        return shiftedLanes(own(block, octet), own(block + 1, octet));
    }

    BitTile const* _tiles;
    std::int64_t _octets;
};

} // namespace tamo::scan
