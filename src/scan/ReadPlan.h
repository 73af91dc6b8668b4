// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "SampleGrid.h"

#include <cstddef>
#include <cstdint>

namespace tamo::scan {

/// Memory comes in lines of this many bytes, and lines in pairs: on common machines a line alone costs as much as both.
constexpr std::int64_t kLine = 64;
constexpr std::int64_t kLinePair = 2 * kLine;

/// How the samples of a grid are read, which follows from how they lie in memory; decided once, before anything is
/// read.
///
/// Reading goes slab by slab, a slab being a plane of constant y, and within a slab in runs of eight samples.
struct ReadPlan {
    enum class Axis {
        kX,
        kY,
        kZ
    };

    /// The axis of the runs: the one whose neighbours are nearest in memory, of those with eight samples or more.
    Axis axis;
    /// The address distance of neighbours along it.
    std::ptrdiff_t stride;
    /// The most slabs that are read at once, so that memory is read in long pieces; a multiple of eight, one, or all.
    std::int64_t slabsPerRead;
    /// The number of slabs that are read first.
    std::int64_t slabsOfFirstRead;
    /// Whether the lines of the next slab, or of the next block of rows, are asked for ahead of their use.
    bool asksAhead;
};

/// Plans how to read the grid; it needs eight samples or more along one axis. Never throws.
ReadPlan makeReadPlan(SampleGrid const& grid);

} // namespace tamo::scan
