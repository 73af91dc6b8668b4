// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "ReadPlan.h"
#include "SampleGrid.h"
#include "SlabRing.h"

#include <cstddef>
#include <cstdint>

namespace tamo::scan {

/// Reads slabs of a sample grid into tiles.
///
/// Samples are read in runs of eight along the axis on which they are nearest in memory, nothing before the first or
/// behind the last of a row. Of a voxel, the lowest bit counts.
class SlabReader {
  public:
    SlabReader(SampleGrid const& grid, ReadPlan const& plan);

    /// Fills slabs y to y + count - 1 of the ring, as many as the plan has from y on. The ring has room for one slab
    /// more than are read at once, and keeps slab y - 1. Slabs before and behind those may be written as well, with
    /// what belongs there: a run is as long as it is.
    void read(std::int64_t y, std::int64_t count, SlabRing const& ring) const { (this->*_read)(y, count, ring); }

  private:
    using Read = void (SlabReader::*)(std::int64_t y, std::int64_t count, SlabRing const& ring) const;

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
    ReadPlan _plan;
    Read _read;
};

} // namespace tamo::scan
