// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../objects/Configurations.h"
#include "BitTile.h"
#include "CellOrder.h"
#include "SampleGrid.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tamo::scan {

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
                _columns[place({x, y})] = samples;
            }
        }
    }

    /// Returns how many samples are foreground.
    [[nodiscard]] std::uint64_t countForeground() const {
        std::uint64_t sum = 0;
        for (std::int64_t i = 0; i < _row * (_count.y + 2); ++i) {
            sum += countBits(_columns[i]);
        }
        return sum;
    }

    /// Hands every cut cell to the receiver once, in the order of CellOrder.h.
    template <typename Receiver> void handTo(Receiver& receiver) const {
        forEachRow(_count, [&](CellRow row, std::int64_t columns, auto /*corners*/) {
            for (std::int64_t i = 0; i < columns; ++i) {
                handColumn(row.column(i), receiver);
            }
        });
        std::array<CellColumn, 4> const corners = cornerColumns(_count);
        std::array<std::uint64_t, 4> const left = {cells(corners[0]), cells(corners[1]), cells(corners[2]),
                                                   cells(corners[3])};
        for (std::int64_t z = -1; z < _count.z; ++z) {
            for (std::size_t i = 0; i < corners.size(); ++i) {
                receiver.beginColumn(corners[i].x, corners[i].y);
                handIfCut(left[i] >> kBits * static_cast<unsigned int>(z + 1), z, receiver);
            }
        }
    }

  private:
    /// A word's bits for a sample, or for the four corners of a plane of cells.
    static constexpr unsigned int kBits = 4;
    /// One plane less than a word has room for: below the first there is one of background.
    static constexpr std::int64_t kMostPlanes = 64 / kBits - 1;
    /// 2.4 KiB of stack: a cube of 15 samples a side with its border, where noise is counted in three quarters of the
    /// time that `CellScan` takes.
    static constexpr std::int64_t kMostColumns = 300;

    /// Columns are kept with a border of background around them.
    [[nodiscard]] std::int64_t place(CellColumn column) const { return (column.y + 1) * _row + column.x + 1; }

    /// Returns a column of cells from the lowest up: each `kBits` above the one before, and in the lowest byte then.
    [[nodiscard]] std::uint64_t cells(CellColumn cellColumn) const {
        std::uint64_t const* const column = _columns + place(cellColumn);
        std::uint64_t const planes = column[0] | column[1] << 1U | column[_row] << 2U | column[_row + 1] << 3U;
        return planes << kBits;
    }

    template <typename Receiver> void handColumn(CellColumn column, Receiver& receiver) const {
        std::uint64_t left = cells(column);
        if (left == 0) {
            return;
        }
        receiver.beginColumn(column.x, column.y);
        for (std::int64_t z = -1; left != 0; left >>= kBits, ++z) {
            handIfCut(left, z, receiver);
        }
    }

    /// Takes the lowest byte for the configuration.
    template <typename Receiver> static void handIfCut(std::uint64_t cells, std::int64_t z, Receiver& receiver) {
        auto const configuration = static_cast<unsigned char>(cells);
        if (isCut(configuration)) {
            receiver.takeCell(configuration, z);
        }
    }

    GLtVec3<std::int64_t> _count;
    std::int64_t _row;
    std::uint64_t _columns[kMostColumns];
};

} // namespace tamo::scan
