// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Histogram.h"
#include "SampleGrid.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tamo::scan {

/// A sample grid with its axes in the order of their strides, the densest first.
///
/// A count may visit cells in any order, and in this one its eight planes at a time are eight streams of memory, with
/// slabs that lie side by side. Thin grids lie on their side, as planes come by the eight.
class AxisOrder {
  public:
    explicit AxisOrder(SampleGrid const& grid);

    /// Returns the grid with its axes exchanged.
    [[nodiscard]] SampleGrid grid() const;

    /// Returns the original grid's histogram, given that of the one with exchanged axes.
    [[nodiscard]] Histogram inOriginalAxes(Histogram const& counted) const;

  private:
    struct Axis {
        std::ptrdiff_t stride;
        std::int64_t count;
        /// The number of the corner that lies along this axis from corner 0.
        unsigned int corner;
    };

    std::array<Axis, 3> _axes;
    unsigned char const* _first;
};

} // namespace tamo::scan
