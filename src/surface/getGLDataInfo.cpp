// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include TAMO_CIMAGE_ADAPTER
#include "CellScan.h"
#include "SmallScan.h"

#include <tamo/surface/TAMO.h>

#include <array>
#include <cstdint>
#include <new>
#include <numeric>
#include <optional>

namespace {

using Histogram = std::array<std::uint64_t, 256>;

constexpr unsigned int kFull = 255;

std::uint64_t countForeground(tamo::SampleGrid const& grid) {
    std::uint64_t sum = 0;
    for (std::int64_t z = 0; z < grid.count.z; ++z) {
        for (std::int64_t y = 0; y < grid.count.y; ++y) {
            for (std::int64_t x = 0; x < grid.count.x; ++x) {
                sum += *grid.at(x, y, z) & 1U;
            }
        }
    }
    return sum;
}

// Counts cell by cell, corner by corner: slow, but it needs no work space.
void countEachCell(tamo::SampleGrid const& grid, Histogram& histogram) {
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
}

// Adds every cut cell to the counter of its configuration.
void countCutCells(tamo::SampleGrid const& grid, Histogram& histogram) {
    if (tamo::SmallScan::fits(grid)) {
        tamo::SmallScan(grid).visitInOrder([&histogram](std::int64_t, std::int64_t) {
            return [&histogram](unsigned char configuration, std::int64_t) { ++histogram[configuration]; };
        });
        return;
    }
    std::optional<tamo::CellScan> scan;
    try {
        scan.emplace(grid);
    } catch (std::bad_alloc const&) {
        // A count is never refused for want of memory: callers use it to find out how much they need.
        countEachCell(grid, histogram);
        return;
    }
    scan->count(histogram);
}

// Completes a histogram of the cut cells by those that are empty or full.
void countUncutCells(tamo::SampleGrid const& grid, Histogram& histogram) {
    // Every sample is the first corner of exactly one cell: the odd configurations together count the foreground.
    histogram[kFull] = countForeground(grid);
    for (unsigned int c = 1; c < kFull; c += 2) {
        histogram[kFull] -= histogram[c];
    }
    auto const cells = static_cast<std::uint64_t>(grid.count.x + 1) * static_cast<std::uint64_t>(grid.count.y + 1) *
                       static_cast<std::uint64_t>(grid.count.z + 1);
    histogram[0] = cells - std::accumulate(histogram.begin() + 1, histogram.end(), std::uint64_t{0});
}

} // namespace

bool getGLDataInfo(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                   GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                   GLDataInfo& info) {
    if (!tamo::isScannable(data, step, extent, objects)) {
        return false;
    }
    tamo::SampleGrid const grid = tamo::makeSampleGrid(data, increments, step, origin, extent);
    Histogram histogram{};
    countCutCells(grid, histogram);
    // The builders leave both slots empty, so that the cells that make up most of a volume need no counting.
    if (objects[0]->size() != 0 || objects[kFull]->size() != 0) {
        countUncutCells(grid, histogram);
    }

    // In one assignment: the caller may have taken origin and extent from the record itself.
    info = GLDataInfo(origin, extent, step, 0, 0, 0);
    for (unsigned int c = 0; c < histogram.size(); ++c) {
        if (histogram[c] == 0) {
            continue;
        }
        for (GLPolygon const* polygon : *objects[c]) {
            // n - 2 wraps in 32 bits: a polygon of fewer than two vertices shows in the totals instead of hiding.
            unsigned int const triangles = polygon->size() - 2;
            info.primitives() += histogram[c];
            info.triangles() += std::size_t{triangles} * histogram[c];
        }
    }
    info.vertices() = info.triangles() + 2 * info.primitives();
    return true;
}

bool getGLDataInfo(Kade::CImage const& image, unsigned int step, GLObjectList const& objects, GLDataInfo& info) {
    return getGLDataInfo(imageFirstVoxel(image), imageIncrements(image), step, {0, 0, 0}, imageSize(image), objects,
                         info);
}
