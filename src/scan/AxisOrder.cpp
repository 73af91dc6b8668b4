// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "AxisOrder.h"

#include "BitTile.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tamo::scan {

AxisOrder::AxisOrder(SampleGrid const& grid)
    : _axes{{{grid.stride.x, grid.count.x, 1}, {grid.stride.y, grid.count.y, 2}, {grid.stride.z, grid.count.z, 4}}},
      _first(grid.first) {
    auto const isDenser = [](Axis const& a, Axis const& b) { return std::abs(a.stride) < std::abs(b.stride); };
    std::sort(_axes.begin(), _axes.end(), isDenser);
    // An axis too short for whole runs of samples gives way to the next.
    std::size_t densest = 0;
    while (densest < 2 && _axes[densest].count < kTileSide) {
        ++densest;
    }
    auto* const first = _axes.data();
    std::rotate(first, first + densest, first + densest + 1);
    if (_axes[2].count < kTileSide) {
        std::swap(_axes[1], _axes[2]);
    }
}

SampleGrid AxisOrder::grid() const {
    return {
        _first, {_axes[0].stride, _axes[1].stride, _axes[2].stride}, {_axes[0].count, _axes[1].count, _axes[2].count}};
}

Histogram AxisOrder::inOriginalAxes(Histogram const& counted) const {
    if (_axes[0].corner == 1 && _axes[1].corner == 2) {
        return counted;
    }
    std::array<unsigned char, kConfigurationCount> original{};
    Histogram histogram{};
    histogram[0] = counted[0];
    for (unsigned int c = 1; c < counted.size(); ++c) {
        auto const corner = static_cast<unsigned int>(__builtin_ctz(c));
        unsigned int const place =
            (corner & 1U) * _axes[0].corner + (corner >> 1U & 1U) * _axes[1].corner + (corner >> 2U) * _axes[2].corner;
        // Without its lowest corner it is one that has been met already.
        original[c] = static_cast<unsigned char>(original[c & (c - 1)] | 1U << place);
        histogram[original[c]] = counted[c];
    }
    return histogram;
}

} // namespace tamo::scan
