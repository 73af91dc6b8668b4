// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/volumes/VoxelSet.h"

#include <cstdint>
#include <vector>

namespace tamo::test {

/// A cell complex that repeats from voxel to voxel: its pieces are sets of voxels, given from some first voxel on.
class VoxelComplex {
  public:
    /// The points, unit edges, unit squares and unit cubes between voxel centres.
    static VoxelComplex cubes();
    /// The faces of the cell's tetrahedra; `config` is N14I or N14II.
    static VoxelComplex tetrahedra(unsigned int config);

    /// Returns the alternating count of the pieces that lie in the set as a whole.
    [[nodiscard]] std::int64_t euler(VoxelSet const& set) const;

  private:
    struct Piece {
        std::vector<Triple> voxels;
        unsigned int dimension;
    };

    void add(std::vector<Triple> voxels, unsigned int dimension);

    std::vector<Piece> _pieces;
};

/// Lists, as corner sets, the tetrahedra of a sixth of the cell all of whose edges are links of the system.
std::vector<unsigned int> cellTetrahedra(unsigned int config);

/// Returns the Euler number of the object whose boundary the surface of `set` is; `config` is one of kSurfaceSystems.
std::int64_t objectEuler(VoxelSet const& set, unsigned int config);

} // namespace tamo::test
