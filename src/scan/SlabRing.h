// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"

#include <cstdint>

namespace tamo::scan {

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

} // namespace tamo::scan
