// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../objects/Configurations.h"
#include "CellOrder.h"
#include "SampleGrid.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tamo::scan {

/// Does what `CellScan` does without any memory, cell by cell: many times slower on most volumes, but the better choice
/// where a work space would take more than a byte per sample, and the only one where there is none to be had.
class PlainScan {
  public:
    explicit PlainScan(SampleGrid const& grid) : _grid(grid) {}

    /// Returns how many samples are foreground.
    [[nodiscard]] std::uint64_t countForeground() const {
        std::uint64_t sum = 0;
        for (std::int64_t z = 0; z < _grid.count.z; ++z) {
            for (std::int64_t y = 0; y < _grid.count.y; ++y) {
                for (std::int64_t x = 0; x < _grid.count.x; ++x) {
                    sum += *_grid.at(x, y, z) & 1U;
                }
            }
        }
        return sum;
    }

    /// Hands every cut cell to the receiver once, in the order of CellOrder.h.
    template <typename Receiver> void handTo(Receiver& receiver) const {
        forEachRow(_grid.count, [&](CellRow row, std::int64_t columns, auto corners) {
            handRow<decltype(corners)::value>(row, columns, receiver);
        });
        handCorners(receiver);
    }

  private:
    /// The samples around a column of cells, read from the bottom up.
    template <unsigned int corners> class Samples {
      public:
        Samples(SampleGrid const& grid, CellColumn column)
            : _column(column.x * grid.stride.x + column.y * grid.stride.y), _grid(grid) {}

        /// Returns the configuration of the cell above sample plane z, -1 to the last. To be asked for one after the
        /// other: each plane is read once and kept for the next cell.
        [[nodiscard]] unsigned int cell(std::int64_t z) {
            unsigned int const configuration = _below | (z + 1 < _grid.count.z ? plane(z + 1) << 4U : 0U);
            _below = configuration >> 4U;
            return configuration;
        }

      private:
        [[nodiscard]] unsigned int plane(std::int64_t z) const {
            std::ptrdiff_t const first = _column + z * _grid.stride.z;
            return sample<0>(first) | sample<1>(first + _grid.stride.x) | sample<2>(first + _grid.stride.y) |
                   sample<3>(first + _grid.stride.x + _grid.stride.y);
        }

        template <unsigned int corner> [[nodiscard]] unsigned int sample(std::ptrdiff_t place) const {
            if constexpr ((corners >> corner & 1U) != 0) {
                return (_grid.first[place] & 1U) << corner;
            }
            return 0;
        }

        std::ptrdiff_t _column;
        SampleGrid const& _grid;
        unsigned int _below = 0;
    };

    template <unsigned int corners, typename Receiver>
    void handRow(CellRow row, std::int64_t columns, Receiver& receiver) const {
        for (std::int64_t i = 0; i < columns; ++i) {
            CellColumn const column = row.column(i);
            Samples<corners> samples(_grid, column);
            receiver.beginColumn(column.x, column.y);
            for (std::int64_t z = -1; z < _grid.count.z; ++z) {
                unsigned int const configuration = samples.cell(z);
                if (isCut(configuration)) {
                    receiver.takeCell(static_cast<unsigned char>(configuration), z);
                }
            }
        }
    }

    template <typename Receiver> void handCorners(Receiver& receiver) const {
        auto const columns = cornerColumns(_grid.count);
        Samples<kUpperX & kUpperY> lowerLower(_grid, columns[0]);
        Samples<kUpperX & kLowerY> lowerUpper(_grid, columns[1]);
        Samples<kLowerX & kUpperY> upperLower(_grid, columns[2]);
        Samples<kLowerX & kLowerY> upperUpper(_grid, columns[3]);
        for (std::int64_t z = -1; z < _grid.count.z; ++z) {
            auto const handIfCut = [&](CellColumn column, unsigned int configuration) {
                if (isCut(configuration)) {
                    receiver.beginColumn(column.x, column.y);
                    receiver.takeCell(static_cast<unsigned char>(configuration), z);
                }
            };
            handIfCut(columns[0], lowerLower.cell(z));
            handIfCut(columns[1], lowerUpper.cell(z));
            handIfCut(columns[2], upperLower.cell(z));
            handIfCut(columns[3], upperUpper.cell(z));
        }
    }

    SampleGrid _grid;
};

} // namespace tamo::scan
