// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/Emission.h"
#include "support/volumes/PlainVolume.h"

#include <algorithm>
#include <cstdint>

namespace tamo::test {

/// The box of a volume that a scan covers.
struct ScanBox {
    unsigned int step = 1;
    Triple origin = {0, 0, 0};
    Triple extent = {1, 1, 1};
};

/// Lists the cells of a scan the slow way: every corner of every cell is looked up on its own, and the order comes from
/// sorting all cells by a key that spells it out.
class ReferenceScan {
  public:
    explicit ReferenceScan(ScanBox const& box) : _box(box) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            _samples[axis] = static_cast<int>(static_cast<unsigned int>(box.extent[axis]) / box.step);
        }
    }

    /// Returns every cell, those of configuration 0 and 255 included. `valueAt(x, y, z)` takes volume coordinates.
    template <typename ValueAt> [[nodiscard]] Emissions allCells(ValueAt const& valueAt) const {
        return cells(valueAt, [](unsigned int) { return true; });
    }

    /// Returns the cells that a receiver gets.
    template <typename ValueAt> [[nodiscard]] Emissions emissions(ValueAt const& valueAt) const {
        return cells(valueAt, [](unsigned int configuration) { return configuration != 0 && configuration != 255; });
    }

  private:
    using Key = std::array<int, 4>;

    template <typename ValueAt, typename IsWanted>
    [[nodiscard]] Emissions cells(ValueAt const& valueAt, IsWanted const& isWanted) const {
        std::vector<std::pair<Key, Emission>> keyed;
        for (int z = -1; z < _samples[2]; ++z) {
            for (int y = -1; y < _samples[1]; ++y) {
                for (int x = -1; x < _samples[0]; ++x) {
                    unsigned int const configuration = configurationOf(valueAt, {x, y, z});
                    if (isWanted(configuration)) {
                        keyed.push_back({keyOf(x, y, z), {configuration, positionOf({x, y, z})}});
                    }
                }
            }
        }
        std::sort(keyed.begin(), keyed.end(), [](auto const& a, auto const& b) { return a.first < b.first; });
        Emissions ordered;
        ordered.reserve(keyed.size());
        for (auto const& [key, emission] : keyed) {
            ordered.push_back(emission);
        }
        return ordered;
    }

    template <typename ValueAt>
    [[nodiscard]] unsigned int configurationOf(ValueAt const& valueAt, Triple const& cell) const {
        unsigned int configuration = 0;
        for (int dz = 0; dz < 2; ++dz) {
            for (int dy = 0; dy < 2; ++dy) {
                for (int dx = 0; dx < 2; ++dx) {
                    Triple const sample = {cell[0] + dx, cell[1] + dy, cell[2] + dz};
                    if (isInGrid(sample) && valueAt(voxel(sample, 0), voxel(sample, 1), voxel(sample, 2)) != 0) {
                        configuration |= 1U << static_cast<unsigned int>(dx + 2 * dy + 4 * dz);
                    }
                }
            }
        }
        return configuration;
    }

    [[nodiscard]] bool isInGrid(Triple const& sample) const {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (sample[axis] < 0 || sample[axis] >= _samples[axis]) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] int voxel(Triple const& sample, std::size_t axis) const {
        return _box.origin[axis] + sample[axis] * static_cast<int>(_box.step);
    }

    [[nodiscard]] GLCoord3f positionOf(Triple const& cell) const {
        auto const along = [&](std::size_t axis) {
            auto const inBox = static_cast<float>(std::int64_t{cell[axis]} * _box.step);
            return inBox + static_cast<float>(_box.origin[axis]);
        };
        return {along(0), along(1), along(2)};
    }

    /// Cells come in six groups, by how their x and y lie to the samples; within a group the later entries run faster.
    [[nodiscard]] Key keyOf(int x, int y, int z) const {
        bool const lowX = x == -1;
        bool const lowY = y == -1;
        bool const highX = x == _samples[0] - 1;
        bool const highY = y == _samples[1] - 1;
        bool const innerX = !lowX && !highX;
        bool const innerY = !lowY && !highY;
        if (innerX && innerY) {
            return {1, y, x, z};
        }
        if (innerX) {
            return {highY ? 2 : 4, x, z, 0};
        }
        if (innerY) {
            return {highX ? 3 : 5, y, z, 0};
        }
        return {6, z, x, y};
    }

    ScanBox _box;
    Triple _samples{};
};

} // namespace tamo::test
