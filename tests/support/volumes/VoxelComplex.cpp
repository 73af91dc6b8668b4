// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/volumes/VoxelComplex.h"

#include "support/oracle/PlainAdjacency.h"

#include <tamo/neighborhood/Neighborhood.h>

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstdlib>

namespace tamo::test {

namespace {

std::vector<Triple> cellCorners(unsigned int corners) {
    std::vector<Triple> steps;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        if ((corners >> corner) % 2 == 1) {
            steps.push_back(cellCorner(corner));
        }
    }
    return steps;
}

// Returns whether every two of the corners are linked.
bool isClique(unsigned int corners, PlainAdjacency const& adjacency) {
    std::size_t pairs = 0;
    for (unsigned int const link : adjacency.foreground) {
        pairs += (plainMask(link) & corners) == plainMask(link) ? 1 : 0;
    }
    std::size_t const n = std::bitset<8>(corners).count();
    return pairs == n * (n - 1) / 2;
}

} // namespace

void VoxelComplex::add(std::vector<Triple> voxels, unsigned int dimension) {
    // The same piece elsewhere is not another one.
    std::sort(voxels.begin(), voxels.end());
    Triple const first = voxels.front();
    for (Triple& voxel : voxels) {
        voxel = voxel - first;
    }
    bool const isKnown =
        std::any_of(_pieces.begin(), _pieces.end(), [&](Piece const& piece) { return piece.voxels == voxels; });
    if (!isKnown) {
        _pieces.push_back({voxels, dimension});
    }
}

VoxelComplex VoxelComplex::cubes() {
    VoxelComplex complex;
    // A face of the cell is the corners that lie between two opposite ones of it, coordinate by coordinate.
    for (unsigned int low = 0; low < 8; ++low) {
        for (unsigned int high = 0; high < 8; ++high) {
            if ((low & high) != low) {
                continue;
            }
            unsigned int corners = 0;
            for (unsigned int corner = 0; corner < 8; ++corner) {
                corners |= (corner & low) == low && (corner & high) == corner ? 1U << corner : 0U;
            }
            complex.add(cellCorners(corners), static_cast<unsigned int>(std::bitset<3>(low ^ high).count()));
        }
    }
    return complex;
}

VoxelComplex VoxelComplex::tetrahedra(unsigned int config) {
    VoxelComplex complex;
    for (unsigned int const corners : cellTetrahedra(config)) {
        for (unsigned int part = corners; part != 0; part = (part - 1) & corners) {
            complex.add(cellCorners(part), static_cast<unsigned int>(std::bitset<8>(part).count() - 1));
        }
    }
    return complex;
}

std::int64_t VoxelComplex::euler(VoxelSet const& set) const {
    std::int64_t count = 0;
    set.forEach([&](Triple const& voxel) {
        for (Piece const& piece : _pieces) {
            bool const isInside = std::all_of(piece.voxels.begin(), piece.voxels.end(),
                                              [&](Triple const& offset) { return set.has(voxel + offset); });
            count += !isInside ? 0 : piece.dimension % 2 == 0 ? 1 : -1;
        }
    });
    return count;
}

std::vector<unsigned int> cellTetrahedra(unsigned int config) {
    std::vector<unsigned int> tetrahedra;
    PlainAdjacency const adjacency(config);
    for (unsigned int corners = 1; corners < 256; ++corners) {
        std::vector<Triple> const v = cellCorners(corners);
        if (v.size() == 4 && isClique(corners, adjacency) &&
            std::abs(dot(v[1] - v[0], cross(v[2] - v[0], v[3] - v[0]))) == 1) {
            tetrahedra.push_back(corners);
        }
    }
    return tetrahedra;
}

std::int64_t objectEuler(VoxelSet const& set, unsigned int config) {
    static VoxelComplex const cubes = VoxelComplex::cubes();
    static VoxelComplex const tetrahedraI = VoxelComplex::tetrahedra(Neighborhood::N14I);
    static VoxelComplex const tetrahedraII = VoxelComplex::tetrahedra(Neighborhood::N14II);
    switch (config) {
    case Neighborhood::N6:
        return cubes.euler(set);
    case Neighborhood::N26:
        // The background is the rest of a ball, grown to space with a point at infinity.
        return cubes.euler(set.complement()) - 1;
    case Neighborhood::N14I:
        return tetrahedraI.euler(set);
    default:
        return tetrahedraII.euler(set);
    }
}

} // namespace tamo::test
