// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLtVec3.h>

#include <cstddef>
#include <cstdint>

namespace tamo::plain {

/// The arguments of a scan, which have to be valid: nothing here is checked.
struct ScanArguments {
    unsigned char const* data;
    GLtVec3<int> increments;
    unsigned int step;
    GLtVec3<int> origin;
    GLtVec3<int> extent;
};

/// The samples of the box, numbered 0 to `count` - 1 along each axis. Shares no code with the library's own grid.
struct SampleGrid {
    explicit SampleGrid(ScanArguments const& a)
        : first(a.data + std::ptrdiff_t{a.origin.x} * a.increments.x + std::ptrdiff_t{a.origin.y} * a.increments.y +
                std::ptrdiff_t{a.origin.z} * a.increments.z),
          stride{std::ptrdiff_t{a.step} * a.increments.x, std::ptrdiff_t{a.step} * a.increments.y,
                 std::ptrdiff_t{a.step} * a.increments.z},
          count{samples(a.extent.x, a.step), samples(a.extent.y, a.step), samples(a.extent.z, a.step)} {}

    /// A negative side is a large unsigned one.
    static std::int64_t samples(int side, unsigned int step) {
        return std::int64_t{static_cast<unsigned int>(side) / step};
    }

    unsigned char const* first;
    GLtVec3<std::ptrdiff_t> stride;
    GLtVec3<std::int64_t> count;
};

/// The corners of a cell's lower plane that lie in the sample grid, as the bits dx + 2 dy that they take.
enum PlaneCorners : unsigned int {
    kAllCorners = 0xF,
    kLowerY = 0x3,
    kUpperY = 0xC,
    kLowerX = 0x5,
    kUpperX = 0xA,
};

/// A column of cells along z: reads each plane of the corners in `Corners` once and keeps it for the next cell.
///
/// The column belongs to the cells whose corner (0, 0) is sample (x, y); corners not in `Corners` are background and
/// are never read.
template <unsigned int Corners> class CellColumn {
  public:
    CellColumn(SampleGrid const& grid, std::int64_t x, std::int64_t y)
        : _offset(x * grid.stride.x + y * grid.stride.y), _grid(grid), _x(x), _y(y) {}

    /// Visits the cell whose lower plane is sample plane z, -1 to count - 1, with its configuration. Visit planes
    /// in ascending order.
    template <typename Visit> void visitCell(std::int64_t z, Visit&& visit) {
        unsigned int const upper = z + 1 < _grid.count.z ? readPlane(z + 1) : 0U;
        visit(static_cast<unsigned char>(_lower + (upper << 4U)), _x, _y, z);
        _lower = upper;
    }

    template <typename Visit> void visitAll(Visit&& visit) {
        for (std::int64_t z = -1; z < _grid.count.z; ++z) {
            visitCell(z, visit);
        }
    }

  private:
    [[nodiscard]] unsigned int readPlane(std::int64_t z) const {
        std::ptrdiff_t const plane = _offset + z * _grid.stride.z;
        unsigned int bits = 0;
        if constexpr ((Corners & 1U) != 0) {
            bits += _grid.first[plane];
        }
        if constexpr ((Corners & 2U) != 0) {
            bits += static_cast<unsigned int>(_grid.first[plane + _grid.stride.x]) << 1U;
        }
        if constexpr ((Corners & 4U) != 0) {
            bits += static_cast<unsigned int>(_grid.first[plane + _grid.stride.y]) << 2U;
        }
        if constexpr ((Corners & 8U) != 0) {
            bits += static_cast<unsigned int>(_grid.first[plane + _grid.stride.x + _grid.stride.y]) << 3U;
        }
        return bits;
    }

    std::ptrdiff_t _offset;
    SampleGrid const& _grid;
    std::int64_t _x;
    std::int64_t _y;
    unsigned int _lower = 0;
};

/// Visits every cell of the grid once, the border of background samples included, in the order that receivers rely on:
/// inner columns, upper y, upper x, lower y and lower x border, then the four corner columns level by level.
///
/// `visit(configuration, x, y, z)` takes the numbers of the cell's lower corner, -1 to count - 1. Allocates nothing.
template <typename Visit> void forEachCell(SampleGrid const& grid, Visit&& visit) {
    std::int64_t const lastX = grid.count.x - 1;
    std::int64_t const lastY = grid.count.y - 1;

    for (std::int64_t y = 0; y < lastY; ++y) {
        for (std::int64_t x = 0; x < lastX; ++x) {
            CellColumn<kAllCorners>(grid, x, y).visitAll(visit);
        }
    }
    for (std::int64_t x = 0; x < lastX; ++x) {
        CellColumn<kLowerY>(grid, x, lastY).visitAll(visit);
    }
    for (std::int64_t y = 0; y < lastY; ++y) {
        CellColumn<kLowerX>(grid, lastX, y).visitAll(visit);
    }
    for (std::int64_t x = 0; x < lastX; ++x) {
        CellColumn<kUpperY>(grid, x, -1).visitAll(visit);
    }
    for (std::int64_t y = 0; y < lastY; ++y) {
        CellColumn<kUpperX>(grid, -1, y).visitAll(visit);
    }

    CellColumn<kUpperX & kUpperY> lowerLower(grid, -1, -1);
    CellColumn<kUpperX & kLowerY> lowerUpper(grid, -1, lastY);
    CellColumn<kLowerX & kUpperY> upperLower(grid, lastX, -1);
    CellColumn<kLowerX & kLowerY> upperUpper(grid, lastX, lastY);
    for (std::int64_t z = -1; z < grid.count.z; ++z) {
        lowerLower.visitCell(z, visit);
        lowerUpper.visitCell(z, visit);
        upperLower.visitCell(z, visit);
        upperUpper.visitCell(z, visit);
    }
}

} // namespace tamo::plain
