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
/// A column of samples is a word, four bits each. Four columns side by side, each shifted by one more bit and joined,
/// are the planes of the column of cells between them, and two planes that follow each other are a configuration.
/// Allocates nothing.
class SmallScan {
  public:
    /// The most cells along any axis.
    static constexpr std::int64_t kLongest = 100;

    [[nodiscard]] static bool fits(SampleGrid const& grid) {
        return grid.count.z <= kMostPlanes && grid.count.x < kLongest && grid.count.y < kLongest &&
               (grid.count.x + 2) * (grid.count.y + 2) <= kMostColumns;
    }

    explicit SmallScan(SampleGrid const& grid) : _count(grid.count), _row(grid.count.x + 2) {
        std::fill_n(_columns, _row * (_count.y + 2), std::uint64_t{0});
        for (std::int64_t y = 0; y < _count.y; ++y) {
            for (std::int64_t x = 0; x < _count.x; ++x) {
                std::uint64_t samples = 0;
                for (std::int64_t z = _count.z; z-- > 0;) {
                    samples = samples << kBits | (*grid.at(x, y, z) & 1U);
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
        std::uint64_t const corners[] = {cells(-1, -1), cells(-1, lastY), cells(lastX, -1), cells(lastX, lastY)};
        for (std::int64_t z = -1; z < _count.z; ++z) {
            unsigned int const shift = kBits * static_cast<unsigned int>(z + 1);
            visitIfCut(corners[0] >> shift, z, beginColumn(-1, -1));
            visitIfCut(corners[1] >> shift, z, beginColumn(-1, lastY));
            visitIfCut(corners[2] >> shift, z, beginColumn(lastX, -1));
            visitIfCut(corners[3] >> shift, z, beginColumn(lastX, lastY));
        }
    }

  private:
    /// A word's bits for a sample, or for the four corners of a plane of cells.
    static constexpr unsigned int kBits = 4;
    /// One plane less than a word has room for: below the first there is one of background.
    static constexpr std::int64_t kMostPlanes = 64 / kBits - 1;
    static constexpr std::int64_t kMostColumns = 300;

    /// Columns are kept with a border of background around them.
    [[nodiscard]] std::int64_t place(std::int64_t x, std::int64_t y) const { return (y + 1) * _row + x + 1; }

    /// Returns a column of cells from the lowest up: each `kBits` above the one before, and in the lowest byte then.
    [[nodiscard]] std::uint64_t cells(std::int64_t x, std::int64_t y) const {
        std::uint64_t const* const column = _columns + place(x, y);
        std::uint64_t const planes = column[0] | column[1] << 1U | column[_row] << 2U | column[_row + 1] << 3U;
        return planes << kBits;
    }

    template <typename BeginColumn>
    void visitColumn(std::int64_t x, std::int64_t y, BeginColumn const& beginColumn) const {
        std::uint64_t left = cells(x, y);
        if (left == 0) {
            return;
        }
        auto const visit = beginColumn(x, y);
        for (std::int64_t z = -1; left != 0; left >>= kBits, ++z) {
            visitIfCut(left, z, visit);
        }
    }

    /// Takes the lowest byte for the configuration.
    template <typename Visit> static void visitIfCut(std::uint64_t cells, std::int64_t z, Visit const& visit) {
        auto const configuration = static_cast<unsigned char>(cells);
        if (configuration != 0 && configuration != 255) {
            visit(configuration, z);
        }
    }

    GLtVec3<std::int64_t> _count;
    std::int64_t _row;
    std::uint64_t _columns[kMostColumns];
};

} // namespace tamo
