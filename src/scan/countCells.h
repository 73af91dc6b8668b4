// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Histogram.h"
#include "SampleGrid.h"

namespace tamo::scan {

/// Which cells a count has to count.
enum class CountedCells {
    /// Those with corners of both kinds; the counters of configurations 0 and 255 may then hold anything.
    kCut,
    kAll
};

/// Counts the cells of a grid, its border of background samples included, by their configurations. Without memory for
/// its work space it counts all the same, only slower. Never throws.
Histogram countCells(SampleGrid const& grid, CountedCells wanted);

} // namespace tamo::scan
