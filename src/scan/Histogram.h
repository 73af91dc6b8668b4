// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../objects/Configurations.h"

#include <tamo/geometry/GLtVec3.h>

#include <array>
#include <cstdint>
#include <numeric>

namespace tamo::scan {

/// How many cells there are of each configuration.
using Histogram = std::array<std::uint64_t, kConfigurationCount>;

/// Completes a histogram of the cut cells by those that are empty or full, given the grid's samples along each axis and
/// how many of them are foreground.
inline void addUncutCells(GLtVec3<std::int64_t> const& samples, std::uint64_t foreground, Histogram& histogram) {
    // Every sample is the first corner of exactly one cell: the odd configurations together count the foreground.
    histogram[kFullCell] = foreground;
    for (unsigned int c = 1; c < kFullCell; c += 2) {
        histogram[kFullCell] -= histogram[c];
    }
    auto const cells = static_cast<std::uint64_t>(samples.x + 1) * static_cast<std::uint64_t>(samples.y + 1) *
                       static_cast<std::uint64_t>(samples.z + 1);
    histogram[0] = cells - std::accumulate(histogram.begin() + 1, histogram.end(), std::uint64_t{0});
}

} // namespace tamo::scan
