// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/ReferenceScan.h"
#include "support/volumes/PlainVolume.h"

#include "src/scan/SampleGrid.h"

#include <cstdint>
#include <random>
#include <vector>

namespace tamo::test {

/// How many of a volume's voxels are foreground.
enum class Noise {
    kHalf,
    /// So few that most tiles have none.
    kFew,
    /// So many that most tiles have all.
    kMost
};

constexpr std::array<Noise, 3> kAllNoises = {Noise::kHalf, Noise::kFew, Noise::kMost};

/// Returns the sample's value, 0 or 1, and 0 outside the grid.
inline unsigned int sampleOf(scan::SampleGrid const& grid, std::int64_t x, std::int64_t y, std::int64_t z) {
    bool const isInside = x >= 0 && y >= 0 && z >= 0 && x < grid.count.x && y < grid.count.y && z < grid.count.z;
    return isInside ? grid.first[x * grid.stride.x + y * grid.stride.y + z * grid.stride.z] % 2U : 0U;
}

/// Returns the configuration of the cell whose lower corner is sample (x, y, z): every corner looked up on its own.
inline unsigned int configurationOf(scan::SampleGrid const& grid, std::int64_t x, std::int64_t y, std::int64_t z) {
    unsigned int configuration = 0;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        configuration += sampleOf(grid, x + corner % 2, y + corner / 2 % 2, z + corner / 4) << corner;
    }
    return configuration;
}

/// Returns how many cells there are of each configuration, those of the border of background samples included.
inline std::array<std::uint64_t, 256> cellsByLookingUp(scan::SampleGrid const& grid) {
    std::array<std::uint64_t, 256> histogram{};
    for (std::int64_t z = -1; z < grid.count.z; ++z) {
        for (std::int64_t y = -1; y < grid.count.y; ++y) {
            for (std::int64_t x = -1; x < grid.count.x; ++x) {
                ++histogram[configurationOf(grid, x, y, z)];
            }
        }
    }
    return histogram;
}

/// Owns a volume of noise, of which every voxel is a sample.
///
/// Voxels hold anything from 0 to 255: the odd ones are foreground.
class NoiseGrid {
  public:
    explicit NoiseGrid(Triple const& size, VolumeLayout const& layout = {}, Noise noise = Noise::kHalf)
        : _size(size), _volume({0, 0, 0}, size, layout) {
        std::mt19937 random(static_cast<unsigned int>(size[0] + 1000 * size[1] + 31 * size[2]));
        for (int z = 0; z < size[2]; ++z) {
            for (int y = 0; y < size[1]; ++y) {
                for (int x = 0; x < size[0]; ++x) {
                    bool const isOdd = noise == Noise::kHalf ? random() % 2 == 0 : random() % 200 == 0;
                    unsigned int const low = isOdd != (noise == Noise::kMost) ? 1 : 0;
                    _volume.at(x, y, z) = static_cast<unsigned char>(random() % 128 * 2 + low);
                }
            }
        }
    }

    [[nodiscard]] scan::SampleGrid grid() const {
        return scan::makeSampleGrid(_volume.data(), _volume.increments(), 1, {0, 0, 0}, toVec3(_size));
    }

    /// Returns the cut cells in the order in which a receiver gets them.
    [[nodiscard]] Emissions cutCells() const {
        return ReferenceScan({1, {0, 0, 0}, _size}).emissions([this](int x, int y, int z) {
            return _volume.at(x, y, z) % 2;
        });
    }

    [[nodiscard]] std::uint64_t foreground() const {
        std::uint64_t sum = 0;
        for (int z = 0; z < _size[2]; ++z) {
            for (int y = 0; y < _size[1]; ++y) {
                for (int x = 0; x < _size[0]; ++x) {
                    sum += _volume.at(x, y, z) % 2U;
                }
            }
        }
        return sum;
    }

  private:
    Triple _size;
    PlainVolume _volume;
};

/// Takes note of the cells that it is handed.
class CellRecorder {
  public:
    void beginColumn(std::int64_t x, std::int64_t y) {
        _x = static_cast<float>(x);
        _y = static_cast<float>(y);
    }
    void takeCell(unsigned char configuration, std::int64_t z) {
        cells.push_back({configuration, {_x, _y, static_cast<float>(z)}});
    }

    Emissions cells;

  private:
    float _x = -2;
    float _y = -2;
};

/// Returns all layouts without gaps: each order of the axes, and all three forwards or backwards.
inline std::vector<VolumeLayout> plainLayouts(int spacing = 1) {
    std::vector<VolumeLayout> layouts;
    for (bool const isBackwards : {false, true}) {
        for (std::array<std::size_t, 3> const& order : std::initializer_list<std::array<std::size_t, 3>>{
                 {0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}}) {
            layouts.push_back({order, {isBackwards, isBackwards, isBackwards}, spacing, 0});
        }
    }
    return layouts;
}

} // namespace tamo::test
