// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/volumes/VoxelSet.h"

#include "support/oracle/PlainAdjacency.h"

#include <algorithm>

namespace tamo::test {

VoxelSet::VoxelSet(Triple const& size)
    : _size(size), _members(static_cast<std::size_t>(size[0]) * static_cast<std::size_t>(size[1]) *
                            static_cast<std::size_t>(size[2])) {}

VoxelSet VoxelSet::full(Triple const& size) {
    VoxelSet set(size);
    set._members.flip();
    return set;
}

VoxelSet VoxelSet::pattern(Triple const& size, unsigned int bits) {
    VoxelSet set(size);
    unsigned int place = 0;
    set.forEach([&](Triple const& voxel) { set.set(voxel, (bits >> place++ & 1U) != 0); });
    return set;
}

VoxelSet VoxelSet::random(std::mt19937& engine, unsigned int percent, int largestSide) {
    Triple size{};
    for (int& side : size) {
        side = 2 + static_cast<int>(engine() % static_cast<unsigned int>(largestSide - 1));
    }
    VoxelSet set(size);
    set.forEach([&](Triple const& voxel) { set.set(voxel, engine() % 100 < percent); });
    return set;
}

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
    VoxelSet rest(_size + Triple{2, 2, 2});
    rest.forEach([&](Triple const& voxel) { rest.set(voxel, !has(voxel - Triple{1, 1, 1})); });
    return rest;
}

PlainVolume VoxelSet::volume() const {
    PlainVolume volume = PlainVolume::filled(_size, 0);
    forEach([&](Triple const& voxel) { volume.at(voxel[0], voxel[1], voxel[2]) = has(voxel) ? 1 : 0; });
    return volume;
}

unsigned int VoxelSet::configurationAt(Triple const& corner) const {
    unsigned int configuration = 0;
    for (unsigned int i = 0; i < 8; ++i) {
        configuration |= has(corner + cellCorner(i)) ? 1U << i : 0U;
    }
    return configuration;
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
                for (Triple const& next : {voxel + step, voxel - step}) {
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

std::vector<Triple> neighborSteps(unsigned int config, bool isForeground) {
    PlainAdjacency const plain(config);
    std::vector<Triple> steps;
    for (unsigned int const link : isForeground ? plain.foreground : plain.background) {
        CornerPair const& ends = plainLinks().at(link);
        Triple const step = cellCorner(ends[1]) - cellCorner(ends[0]);
        if (std::find(steps.begin(), steps.end(), step) == steps.end()) {
            steps.push_back(step);
        }
    }
    return steps;
}

} // namespace tamo::test
