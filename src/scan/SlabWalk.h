// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "ReadPlan.h"
#include "SampleGrid.h"
#include "SlabReader.h"
#include "SlabRing.h"

#include <algorithm>
#include <cstdint>

namespace tamo::scan {

/// Goes through a sample grid slab by slab, from the lowest y up, with the slab before at hand: the cells between the
/// two can be looked at.
///
///     for (SlabWalk walk(grid, plan, ring); walk.next();) { use(walk.y(), walk.slab()); }
///
/// What lies beyond the grid is left to the caller. Where it is background, the caller adds the border's cells; where
/// it is not, as for a piece of a larger volume, the grid is to include the samples there (`SampleGrid::grown`).
class SlabWalk {
  public:
    /// The ring has room for `plan.slabsPerRead` + 1 slabs. It has to be all 0, and to outlive the walk.
    SlabWalk(SampleGrid const& grid, ReadPlan const& plan, SlabRing const& ring)
        : _reader(grid, plan), _ring(ring), _count(grid.count.y), _slabsOfRead(plan.slabsOfFirstRead),
          _slabsPerRead(plan.slabsPerRead) {}

    /// Goes to the next slab, starting with the first, and reads slabs where none is at hand. Returns false behind the
    /// last.
    bool next() {
        ++_y;
        if (_y == _atHand) {
            std::int64_t const slabs = std::min(_slabsOfRead, _count - _y);
            if (slabs == 0) {
                return false;
            }
            _reader.read(_y, slabs, _ring);
            _atHand += slabs;
            _slabsOfRead = _slabsPerRead;
        }
        return true;
    }

    /// Returns the number of the slab.
    [[nodiscard]] std::int64_t y() const { return _y; }
    /// Returns the slab's tiles, laid out as in `SlabRing`; valid until the slab after the next is asked for.
    [[nodiscard]] BitTile const* slab() const { return _ring.slab(_y); }
    /// Returns those of the slab before it, which exists from slab 1 on.
    [[nodiscard]] BitTile const* slabBefore() const { return _ring.slab(_y - 1); }

  private:
    SlabReader _reader;
    SlabRing _ring;
    std::int64_t _count;
    std::int64_t _slabsOfRead;
    std::int64_t _slabsPerRead;
    std::int64_t _y = -1;
    std::int64_t _atHand = 0;
};

} // namespace tamo::scan
