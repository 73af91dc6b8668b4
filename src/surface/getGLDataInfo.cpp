// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include TAMO_CIMAGE_ADAPTER
#include "CellScan.h"
#include "SmallScan.h"

#include <tamo/surface/TAMO.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <numeric>
#include <optional>
#include <utility>

namespace {

using Histogram = std::array<std::uint64_t, 256>;

constexpr unsigned int kFull = 255;

// A sample grid with its axes in the order of their strides, the densest first: a count may visit cells in any order,
// and in this one its eight planes at a time are eight streams of memory, with slabs that lie side by side. Thin grids
// lie on their side, as planes come by the eight.
class ReorderedGrid {
  public:
    explicit ReorderedGrid(tamo::SampleGrid const& grid)
        : _axes{{{grid.stride.x, grid.count.x, 1}, {grid.stride.y, grid.count.y, 2}, {grid.stride.z, grid.count.z, 4}}},
          _first(grid.first) {
        auto const isDenser = [](Axis const& a, Axis const& b) { return std::abs(a.stride) < std::abs(b.stride); };
        std::sort(_axes.begin(), _axes.end(), isDenser);
        // An axis too short for whole runs of samples gives way to the next.
        std::size_t densest = 0;
        while (densest < 2 && _axes[densest].count < tamo::kTileSide) {
            ++densest;
        }
        auto* const first = _axes.data();
        std::rotate(first, first + densest, first + densest + 1);
        if (_axes[2].count < tamo::kTileSide) {
            std::swap(_axes[1], _axes[2]);
        }
    }

    [[nodiscard]] tamo::SampleGrid grid() const {
        return {_first,
                {_axes[0].stride, _axes[1].stride, _axes[2].stride},
                {_axes[0].count, _axes[1].count, _axes[2].count}};
    }

    // Returns the original grid's histogram, given that of the reordered one.
    [[nodiscard]] Histogram inOriginalAxes(Histogram const& counted) const {
        if (_axes[0].corner == 1 && _axes[1].corner == 2) {
            return counted;
        }
        std::array<unsigned char, 256> original{};
        Histogram histogram{};
        histogram[0] = counted[0];
        for (unsigned int c = 1; c < counted.size(); ++c) {
            unsigned int const corner = static_cast<unsigned int>(__builtin_ctz(c));
            unsigned int const place = (corner & 1U) * _axes[0].corner + (corner >> 1U & 1U) * _axes[1].corner +
                                       (corner >> 2U) * _axes[2].corner;
            // Without its lowest corner it is one that has been met already.
            original[c] = static_cast<unsigned char>(original[c & (c - 1)] | 1U << place);
            histogram[original[c]] = counted[c];
        }
        return histogram;
    }

  private:
    struct Axis {
        std::ptrdiff_t stride;
        std::int64_t count;
        // The number of the corner that lies along this axis from corner 0.
        unsigned int corner;
    };

    std::array<Axis, 3> _axes;
    unsigned char const* _first;
};

// Counts cell by cell, corner by corner: slow, but it needs no work space.
Histogram countEachCell(tamo::SampleGrid const& grid) {
    Histogram histogram{};
    auto const sample = [&grid](std::int64_t x, std::int64_t y, std::int64_t z) {
        bool const isInGrid = x >= 0 && y >= 0 && z >= 0 && x < grid.count.x && y < grid.count.y && z < grid.count.z;
        return isInGrid ? *grid.at(x, y, z) & 1U : 0U;
    };
    for (std::int64_t z = -1; z < grid.count.z; ++z) {
        for (std::int64_t y = -1; y < grid.count.y; ++y) {
            for (std::int64_t x = -1; x < grid.count.x; ++x) {
                unsigned int configuration = 0;
                for (unsigned int corner = 0; corner < 8; ++corner) {
                    configuration |= sample(x + (corner & 1U), y + (corner >> 1U & 1U), z + (corner >> 2U)) << corner;
                }
                ++histogram[configuration];
            }
        }
    }
    return histogram;
}

// Completes a histogram of the cut cells by those that are empty or full.
void addUncutCells(tamo::SampleGrid const& grid, std::uint64_t foreground, Histogram& histogram) {
    // Every sample is the first corner of exactly one cell: the odd configurations together count the foreground.
    histogram[kFull] = foreground;
    for (unsigned int c = 1; c < kFull; c += 2) {
        histogram[kFull] -= histogram[c];
    }
    auto const cells = static_cast<std::uint64_t>(grid.count.x + 1) * static_cast<std::uint64_t>(grid.count.y + 1) *
                       static_cast<std::uint64_t>(grid.count.z + 1);
    histogram[0] = cells - std::accumulate(histogram.begin() + 1, histogram.end(), std::uint64_t{0});
}

Histogram countSmallGrid(tamo::SampleGrid const& grid, bool isCutOnly) {
    Histogram histogram{};
    tamo::SmallScan const scan(grid);
    scan.visitInOrder([&histogram](std::int64_t, std::int64_t) {
        return [&histogram](unsigned char configuration, std::int64_t) { ++histogram[configuration]; };
    });
    if (!isCutOnly) {
        addUncutCells(grid, scan.foreground(), histogram);
    }
    return histogram;
}

// Counts the cells of each configuration. Where `isCutOnly`, those that are empty or full may be missing.
Histogram countCells(tamo::SampleGrid const& grid, bool isCutOnly) {
    if (tamo::SmallScan::fits(grid)) {
        return countSmallGrid(grid, isCutOnly);
    }
    ReorderedGrid const reordered(grid);
    std::optional<tamo::CellScan> scan;
    try {
        scan.emplace(reordered.grid());
    } catch (std::bad_alloc const&) {
        // A count is never refused for want of memory: callers use it to find out how much they need.
        return countEachCell(grid);
    }
    Histogram counted{};
    if (isCutOnly) {
        scan->count(counted);
    } else {
        addUncutCells(grid, scan->countWithForeground(counted), counted);
    }
    return reordered.inOriginalAxes(counted);
}

} // namespace

bool getGLDataInfo(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                   GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                   GLDataInfo& info) {
    if (!tamo::isScannable(data, step, extent, objects)) {
        return false;
    }
    // The builders leave both slots empty, so that the cells that make up most of a volume need no counting.
    bool const isCutOnly = objects[0]->size() == 0 && objects[kFull]->size() == 0;
    Histogram const histogram = countCells(tamo::makeSampleGrid(data, increments, step, origin, extent), isCutOnly);

    std::size_t primitives = 0;
    std::size_t triangles = 0;
    for (unsigned int c = 0; c < histogram.size(); ++c) {
        if (histogram[c] == 0) {
            continue;
        }
        std::size_t trianglesOfCell = 0;
        for (GLPolygon const* polygon : *objects[c]) {
            // n - 2 wraps in 32 bits: a polygon of fewer than two vertices shows in the totals instead of hiding.
            trianglesOfCell += polygon->size() - 2U;
        }
        primitives += objects[c]->size() * histogram[c];
        triangles += trianglesOfCell * histogram[c];
    }
    // In one assignment: the caller may have taken origin and extent from the record itself.
    info = GLDataInfo(origin, extent, step, 0, 0, 0);
    info.primitives() = primitives;
    info.triangles() = triangles;
    info.vertices() = triangles + 2 * primitives;
    return true;
}

bool getGLDataInfo(Kade::CImage const& image, unsigned int step, GLObjectList const& objects, GLDataInfo& info) {
    return getGLDataInfo(imageFirstVoxel(image), imageIncrements(image), step, {0, 0, 0}, imageSize(image), objects,
                         info);
}
