// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/volumes/PlainVolume.h"

#include <cstdint>
#include <vector>

namespace tamo::test {

/// A cell complex that repeats from voxel to voxel: pieces are sets of voxels, given from some first voxel on.
class VoxelComplex {
  public:
    /// The points, unit edges, unit squares and unit cubes between voxel centres.
    static VoxelComplex cubes();
    /// The faces of the tetrahedra between linked corners that fill a unit cell; `config` is N14I or N14II.
    static VoxelComplex tetrahedra(unsigned int config);

    struct Piece {
        std::vector<Triple> voxels;
        unsigned int dimension;
    };
    [[nodiscard]] std::vector<Piece> const& pieces() const { return _pieces; }

  private:
    void add(std::vector<Triple> voxels, unsigned int dimension);

    std::vector<Piece> _pieces;
};

/// A set of voxels in a box; beyond the box no voxel belongs to it.
class VoxelSet {
  public:
    explicit VoxelSet(Triple const& size);

    [[nodiscard]] Triple const& size() const { return _size; }
    [[nodiscard]] bool has(Triple const& voxel) const;
    void set(Triple const& voxel, bool isMember);

    /// Returns the rest of the box grown by one voxel on every side.
    [[nodiscard]] VoxelSet complement() const;
    /// Returns the same set as a volume to scan.
    [[nodiscard]] PlainVolume volume() const;
    /// Returns the pieces that hang together by steps between linked voxels, both ways.
    [[nodiscard]] std::int64_t components(std::vector<Triple> const& steps) const;
    /// Returns the alternating count of the complex's pieces that lie in the set as a whole.
    [[nodiscard]] std::int64_t euler(VoxelComplex const& complex) const;

    template <typename Visit> void forEach(Visit const& visit) const {
        for (int z = 0; z < _size[2]; ++z) {
            for (int y = 0; y < _size[1]; ++y) {
                for (int x = 0; x < _size[0]; ++x) {
                    visit(Triple{x, y, z});
                }
            }
        }
    }

  private:
    [[nodiscard]] std::size_t index(Triple const& voxel) const;

    Triple _size;
    std::vector<bool> _members;
};

/// Returns the steps between foreground (or background) voxels that are neighbours under a system.
std::vector<Triple> neighborSteps(unsigned int config, bool isForeground);

} // namespace tamo::test
