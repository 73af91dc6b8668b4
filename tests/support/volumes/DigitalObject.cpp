// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/volumes/DigitalObject.h"

#include "support/oracle/PlainAdjacency.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstdlib>

namespace tamo::test {

namespace {

Triple cornerVoxel(unsigned int corner) {
    return {static_cast<int>(corner % 2), static_cast<int>(corner / 2 % 2), static_cast<int>(corner / 4)};
}

Triple sum(Triple const& a, Triple const& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
Triple difference(Triple const& a, Triple const& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

int determinant(Triple const& a, Triple const& b, Triple const& c) {
    return a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) + a[2] * (b[0] * c[1] - b[1] * c[0]);
}

std::vector<Triple> cornerVoxels(unsigned int corners) {
    std::vector<Triple> voxels;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        if ((corners >> corner) % 2 == 1) {
            voxels.push_back(cornerVoxel(corner));
        }
    }
    return voxels;
}

} // namespace

void VoxelComplex::add(std::vector<Triple> voxels, unsigned int dimension) {
    // The same piece elsewhere is not another one.
    std::sort(voxels.begin(), voxels.end());
    Triple const first = voxels.front();
    for (Triple& voxel : voxels) {
        voxel = difference(voxel, first);
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
            complex.add(cornerVoxels(corners), static_cast<unsigned int>(std::bitset<3>(low ^ high).count()));
        }
    }
    return complex;
}

VoxelComplex VoxelComplex::tetrahedra(unsigned int config) {
    VoxelComplex complex;
    PlainAdjacency const plain(config);
    auto const isClique = [&plain](unsigned int corners) {
        unsigned int pairs = 0;
        for (unsigned int const link : plain.foreground) {
            pairs += (plainMask(link) & corners) == plainMask(link) ? 1 : 0;
        }
        std::size_t const n = std::bitset<8>(corners).count();
        return pairs == n * (n - 1) / 2;
    };
    for (unsigned int corners = 1; corners < 256; ++corners) {
        std::vector<Triple> const v = cornerVoxels(corners);
        if (v.size() != 4 || !isClique(corners) ||
            std::abs(determinant(difference(v[1], v[0]), difference(v[2], v[0]), difference(v[3], v[0]))) != 1) {
            continue;
        }
        for (unsigned int part = corners; part != 0; part = (part - 1) & corners) {
            complex.add(cornerVoxels(part), static_cast<unsigned int>(std::bitset<8>(part).count() - 1));
        }
    }
    return complex;
}

VoxelSet::VoxelSet(Triple const& size)
    : _size(size), _members(static_cast<std::size_t>(size[0]) * static_cast<std::size_t>(size[1]) *
                            static_cast<std::size_t>(size[2])) {}

std::size_t VoxelSet::index(Triple const& voxel) const {
    std::ptrdiff_t const row = voxel[1] + std::ptrdiff_t{_size[1]} * voxel[2];
    return static_cast<std::size_t>(voxel[0] + _size[0] * row);
}

bool VoxelSet::has(Triple const& voxel) const {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (voxel[axis] < 0 || voxel[axis] >= _size[axis]) {
            return false;
        }
    }
    return _members[index(voxel)];
}

void VoxelSet::set(Triple const& voxel, bool isMember) { _members.at(index(voxel)) = isMember; }

VoxelSet VoxelSet::complement() const {
    VoxelSet rest(sum(_size, {2, 2, 2}));
    rest.forEach([&](Triple const& voxel) { rest.set(voxel, !has(difference(voxel, {1, 1, 1}))); });
    return rest;
}

PlainVolume VoxelSet::volume() const {
    PlainVolume volume = PlainVolume::filled(_size, 0);
    forEach([&](Triple const& voxel) { volume.at(voxel[0], voxel[1], voxel[2]) = has(voxel) ? 1 : 0; });
    return volume;
}

std::int64_t VoxelSet::components(std::vector<Triple> const& steps) const {
    VoxelSet left = *this;
    std::int64_t count = 0;
    forEach([&](Triple const& seed) {
        if (!left.has(seed)) {
            return;
        }
        ++count;
        std::vector<Triple> front = {seed};
        left.set(seed, false);
        while (!front.empty()) {
            Triple const voxel = front.back();
            front.pop_back();
            for (Triple const& step : steps) {
                for (Triple const& next : {sum(voxel, step), difference(voxel, step)}) {
                    if (left.has(next)) {
                        left.set(next, false);
                        front.push_back(next);
                    }
                }
            }
        }
    });
    return count;
}

std::int64_t VoxelSet::euler(VoxelComplex const& complex) const {
    std::int64_t count = 0;
    forEach([&](Triple const& voxel) {
        for (VoxelComplex::Piece const& piece : complex.pieces()) {
            bool const isInside = std::all_of(piece.voxels.begin(), piece.voxels.end(),
                                              [&](Triple const& offset) { return has(sum(voxel, offset)); });
            count += !isInside ? 0 : piece.dimension % 2 == 0 ? 1 : -1;
        }
    });
    return count;
}

std::vector<Triple> neighborSteps(unsigned int config, bool isForeground) {
    PlainAdjacency const plain(config);
    std::vector<Triple> steps;
    for (unsigned int const link : isForeground ? plain.foreground : plain.background) {
        CornerPair const& ends = plainLinks()[link];
        Triple const step = difference(cornerVoxel(ends[1]), cornerVoxel(ends[0]));
        if (std::find(steps.begin(), steps.end(), step) == steps.end()) {
            steps.push_back(step);
        }
    }
    return steps;
}

} // namespace tamo::test
