// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/volumes/PlainVolume.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace tamo::test {

/// A set of voxels in a box; beyond the box no voxel belongs to it.
class VoxelSet {
  public:
    explicit VoxelSet(Triple const& size);
    /// Returns the box of which every voxel belongs to the set.
    static VoxelSet full(Triple const& size);
    /// Returns the set whose members are the bits of a number, in the order of `forEach`.
    static VoxelSet pattern(Triple const& size, unsigned int bits);
    /// Returns a set of 2 to `largestSide` voxels along each axis, `percent` of them members.
    static VoxelSet random(std::mt19937& engine, unsigned int percent, int largestSide);

    [[nodiscard]] Triple const& size() const { return _size; }
    [[nodiscard]] bool has(Triple const& voxel) const;
    void set(Triple const& voxel, bool isMember);

    /// Returns the rest of the box grown by one voxel on every side.
    [[nodiscard]] VoxelSet complement() const;
    /// Returns the same set as a volume to scan.
    [[nodiscard]] PlainVolume volume() const;
    /// Returns the configuration of the cell whose corner 0 is a voxel of the box or just below it.
    [[nodiscard]] unsigned int configurationAt(Triple const& corner) const;
    /// Returns the number of pieces that are connected by steps between voxels, both ways.
    [[nodiscard]] std::int64_t components(std::vector<Triple> const& steps) const;

    template <typename Visit> void forEach(Visit const& visit) const {
        for (int z = 0; z < _size[2]; ++z) {
            for (int y = 0; y < _size[1]; ++y) {
                for (int x = 0; x < _size[0]; ++x) {
                    visit(Triple{x, y, z});
                }
            }
        }
    }

    /// Visits the configurations of all cells with a corner in the box.
    template <typename Visit> void forEachCell(Visit const& visit) const {
        VoxelSet const cells(_size + Triple{1, 1, 1});
        cells.forEach([&](Triple const& cell) { visit(configurationAt(cell - Triple{1, 1, 1})); });
    }

  private:
    [[nodiscard]] std::size_t index(Triple const& voxel) const;

    Triple _size;
    std::vector<bool> _members;
};

/// Returns the steps from the lower to the higher end of foreground (or background) links, each once.
std::vector<Triple> neighborSteps(unsigned int config, bool isForeground);

} // namespace tamo::test
