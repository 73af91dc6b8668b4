// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BitTile.h"
#include "SampleGrid.h"

#include <algorithm>
#include <cstdint>

namespace tamo {

/// Does what `CellScan` does for grids so small that its preparations would take longer than the scan.
///
/// A column of samples is a word, a byte each. Four columns side by side, shifted and joined, are the configurations of
/// the column of cells between them, all at once. Allocates nothing.
class SmallScan {
  public:
    static constexpr std::int64_t kLongest = 8;

    [[nodiscard]] static bool fits(SampleGrid const& grid) {
        return grid.count.x <= kLongest && grid.count.y <= kLongest && grid.count.z <= kLongest;
    }

    explicit SmallScan(SampleGrid const& grid) : _count(grid.count), _row(grid.count.x + 2) {
        std::fill_n(_columns, _row * (_count.y + 2), std::uint64_t{0});
        for (std::int64_t y = 0; y < _count.y; ++y) {
            for (std::int64_t x = 0; x < _count.x; ++x) {
                std::uint64_t samples = 0;
                for (std::int64_t z = _count.z; z-- > 0;) {
                    samples = samples << 8U | (*grid.at(x, y, z) & 1U);
                }
                _columns[place(x, y)] = samples;
            }
        }
    }

    /// Returns how many samples are foreground.
    [[nodiscard]] std::uint64_t foreground() const {
        std::uint64_t sum = 0;
        for (std::int64_t i = 0; i < _row * (_count.y + 2); ++i) {
            sum += countBits(_columns[i]);
        }
        return sum;
    }

    /// Visits the cut cells in the order, and by the means, of `CellScan::visitInOrder`.
    template <typename BeginColumn> void visitInOrder(BeginColumn const& beginColumn) const {
        std::int64_t const lastX = _count.x - 1;
        std::int64_t const lastY = _count.y - 1;
        for (std::int64_t y = 0; y < lastY; ++y) {
            for (std::int64_t x = 0; x < lastX; ++x) {
                visitColumn(x, y, beginColumn);
            }
        }
        for (std::int64_t x = 0; x < lastX; ++x) {
            visitColumn(x, lastY, beginColumn);
        }
        for (std::int64_t y = 0; y < lastY; ++y) {
            visitColumn(lastX, y, beginColumn);
        }
        for (std::int64_t x = 0; x < lastX; ++x) {
            visitColumn(x, -1, beginColumn);
        }
        for (std::int64_t y = 0; y < lastY; ++y) {
            visitColumn(-1, y, beginColumn);
        }
        Cells const corners[] = {cells(-1, -1), cells(-1, lastY), cells(lastX, -1), cells(lastX, lastY)};
        for (std::int64_t z = -1; z < _count.z; ++z) {
            visitIfCut(corners[0].at(z), z, beginColumn(-1, -1));
            visitIfCut(corners[1].at(z), z, beginColumn(-1, lastY));
            visitIfCut(corners[2].at(z), z, beginColumn(lastX, -1));
            visitIfCut(corners[3].at(z), z, beginColumn(lastX, lastY));
        }
    }

  private:
    /// The configurations of a column of cells: from the lowest up, a byte each, and that of the ninth, if there is
    /// one.
    struct Cells {
        [[nodiscard]] std::uint64_t at(std::int64_t z) const {
            auto const place = static_cast<unsigned int>(z + 1);
            return place < kLongest ? firstEight >> (8U * place) : last;
        }

        std::uint64_t firstEight;
        std::uint64_t last;
    };

    /// Columns are kept with a border of background around them.
    [[nodiscard]] std::int64_t place(std::int64_t x, std::int64_t y) const { return (y + 1) * _row + x + 1; }

    [[nodiscard]] Cells cells(std::int64_t x, std::int64_t y) const {
        std::uint64_t const* const column = _columns + place(x, y);
        std::uint64_t const planes = column[0] | column[1] << 1U | column[_row] << 2U | column[_row + 1] << 3U;
        return {planes << 8U | planes << 4U, planes >> 56U};
    }

    template <typename BeginColumn>
    void visitColumn(std::int64_t x, std::int64_t y, BeginColumn const& beginColumn) const {
        Cells const column = cells(x, y);
        if (column.firstEight == 0) {
            return;
        }
        auto const visit = beginColumn(x, y);
        std::int64_t z = -1;
        for (std::uint64_t left = column.firstEight; left != 0; left >>= 8U, ++z) {
            visitIfCut(left, z, visit);
        }
        visitIfCut(column.last, kLongest - 1, visit);
    }

    template <typename Visit> static void visitIfCut(std::uint64_t cells, std::int64_t z, Visit const& visit) {
        auto const configuration = static_cast<unsigned char>(cells);
        if (configuration != 0 && configuration != 255) {
            visit(configuration, z);
        }
    }

    GLtVec3<std::int64_t> _count;
    std::int64_t _row;
    std::uint64_t _columns[(kLongest + 2) * (kLongest + 2)];
};

} // namespace tamo
