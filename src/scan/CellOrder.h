// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLtVec3.h>

#include <array>
#include <cstdint>
#include <type_traits>

// The order in which receivers get the cells of a grid: six blocks of columns along z, a column being named by the
// sample at its lower corner, -1 to the number of samples less one.
//
// What takes cells, here called a receiver, has two members: `beginColumn(x, y)`, and `takeCell(configuration, z)` for
// the cut cells of that column, from the lowest z up.

namespace tamo::scan {

/// A column of cells.
struct CellColumn {
    std::int64_t x;
    std::int64_t y;
};

/// A row of columns: along x at y = `at`, or along y at x = `at`.
struct CellRow {
    [[nodiscard]] CellColumn column(std::int64_t i) const { return isAlongX ? CellColumn{i, at} : CellColumn{at, i}; }

    bool isAlongX;
    std::int64_t at;
};

/// Those of a cell plane's four corners, as bits dx + 2 dy, that lie in the grid; the others are background.
enum PlaneCorners : unsigned int {
    kAllCorners = 0xF,
    kLowerY = 0x3,
    kUpperY = 0xC,
    kLowerX = 0x5,
    kUpperX = 0xA,
};

/// Calls `take(CellRow, columns, corners)` for the rows of the first five blocks: inner columns row by row, upper y,
/// upper x, lower y and lower x border. A row's columns are numbered from 0; the type of `corners` has as its value
/// which corners of their cells lie in the grid.
template <typename Take> void forEachRow(GLtVec3<std::int64_t> const& samples, Take const& take) {
    std::int64_t const lastX = samples.x - 1;
    std::int64_t const lastY = samples.y - 1;
    for (std::int64_t y = 0; y < lastY; ++y) {
        take(CellRow{true, y}, lastX, std::integral_constant<unsigned int, kAllCorners>());
    }
    take(CellRow{true, lastY}, lastX, std::integral_constant<unsigned int, kLowerY>());
    take(CellRow{false, lastX}, lastY, std::integral_constant<unsigned int, kLowerX>());
    take(CellRow{true, -1}, lastX, std::integral_constant<unsigned int, kUpperY>());
    take(CellRow{false, -1}, lastY, std::integral_constant<unsigned int, kUpperX>());
}

/// Returns the columns of the sixth block, which are walked together: at each z all four, in this order.
inline std::array<CellColumn, 4> cornerColumns(GLtVec3<std::int64_t> const& samples) {
    return {{{-1, -1}, {-1, samples.y - 1}, {samples.x - 1, -1}, {samples.x - 1, samples.y - 1}}};
}

} // namespace tamo::scan
