// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "BenchVolume.h"

#include "volume/Error.h"
#include "volume/openVolume.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <random>

namespace tamo::bench {

namespace {

Cube makeEmpty(int side) {
    auto const n = static_cast<std::size_t>(side);
    return {side, std::vector<unsigned char>(n * n * n)};
}

// Sets the voxels of a ball, as far as it lies in the cube; returns how many were not set before.
std::size_t addBall(Cube& cube, std::array<double, 3> const& center, double radius) {
    auto const low = [&](double c) { return std::max(0, static_cast<int>(std::ceil(c - radius))); };
    auto const high = [&](double c) { return std::min(cube.side - 1, static_cast<int>(std::floor(c + radius))); };
    std::size_t added = 0;
    for (int z = low(center[2]); z <= high(center[2]); ++z) {
        for (int y = low(center[1]); y <= high(center[1]); ++y) {
            double const dy = y - center[1];
            double const dz = z - center[2];
            double const half = std::sqrt(std::max(0.0, radius * radius - dy * dy - dz * dz));
            int const end = std::min(cube.side - 1, static_cast<int>(std::floor(center[0] + half)));
            for (int x = std::max(0, static_cast<int>(std::ceil(center[0] - half))); x <= end; ++x) {
                unsigned char& voxel = cube.voxels[cube.index(x, y, z)];
                added += voxel == 0 ? 1U : 0U;
                voxel = 1;
            }
        }
    }
    return added;
}

} // namespace

Cube makeBall(int side) {
    Cube cube = makeEmpty(side);
    double const middle = (side - 1) / 2.0;
    addBall(cube, {middle, middle, middle}, std::max(0.45 * side, 0.9));
    return cube;
}

Cube makeGyroid(int side) {
    // A gyroid of period a has an area of 3.09 / a per volume, and a plane cuts 1.5 cells per area: 4.6 / 23 is a
    // fifth.
    constexpr double kPeriod = 23;
    constexpr double kTurn = 6.283185307179586;
    Cube cube = makeEmpty(side);
    std::vector<float> sine;
    std::vector<float> cosine;
    for (int i = 0; i < side; ++i) {
        sine.push_back(static_cast<float>(std::sin(kTurn * i / kPeriod)));
        cosine.push_back(static_cast<float>(std::cos(kTurn * i / kPeriod)));
    }
    auto const n = static_cast<std::size_t>(side);
    unsigned char* voxel = cube.voxels.data();
    for (std::size_t z = 0; z < n; ++z) {
        for (std::size_t y = 0; y < n; ++y) {
            for (std::size_t x = 0; x < n; ++x) {
                *voxel++ = sine[x] * cosine[y] + sine[y] * cosine[z] + sine[z] * cosine[x] > 0 ? 1 : 0;
            }
        }
    }
    return cube;
}

Cube makeBalls(int side) {
    Cube cube = makeEmpty(side);
    std::mt19937 engine(1);
    auto const number = [&engine](double low, double high) {
        return low + (high - low) * static_cast<double>(engine()) / static_cast<double>(std::mt19937::max());
    };
    std::size_t filled = 0;
    while (2 * filled < cube.voxels.size()) {
        double const radius = number(side / 40.0, side / 12.0);
        filled += addBall(cube, {number(0, side), number(0, side), number(0, side)}, radius);
    }
    return cube;
}

Cube makeFull(int side) {
    Cube cube = makeEmpty(side);
    std::fill(cube.voxels.begin(), cube.voxels.end(), static_cast<unsigned char>(1));
    return cube;
}

Cube makeNoise(int side) {
    Cube cube = makeEmpty(side);
    std::mt19937 engine(1);
    for (unsigned char& voxel : cube.voxels) {
        voxel = static_cast<unsigned char>(engine() & 1U);
    }
    return cube;
}

Cube makeBrain(int side, std::string const& file) {
    volume::VolumeSource source;
    source.path = file;
    auto const brainFile = volume::openVolume(source, {});
    if (brainFile->header().type != volume::ScalarType::UInt8) {
        throw volume::Error(file, "expected a brain of unsigned bytes");
    }
    volume::Volume const brain = brainFile->read(volume::wholeOf(brainFile->header().size), {});
    std::array<int, 3> sides{};
    std::transform(brain.header.size.begin(), brain.header.size.end(), sides.begin(),
                   [](std::int64_t length) { return static_cast<int>(length); });
    int const longest = *std::max_element(sides.begin(), sides.end());
    int const step = (longest + side - 1) / side;
    // Where the voxels of a head are brighter than noise; the same level that draws the picture of the brain.
    constexpr unsigned char kLowest = 60;
    Cube cube = makeEmpty(side);
    auto const margin = [&](std::size_t axis) { return (side - sides[axis] / step) / 2; };
    for (int z = 0; z < sides[2] / step; ++z) {
        for (int y = 0; y < sides[1] / step; ++y) {
            for (int x = 0; x < sides[0] / step; ++x) {
                cube.voxels[cube.index(x + margin(0), y + margin(1), z + margin(2))] =
                    brain.row(std::int64_t{y} * step, std::int64_t{z} * step)[std::int64_t{x} * step] >= kLowest ? 1
                                                                                                                 : 0;
            }
        }
    }
    return cube;
}

BenchVolume::BenchVolume(Cube const& cube, Layout const& layout) : _first(0) {
    auto const [fast, middle, slow] = layout.order;
    std::array<int, 3> size{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        size[axis] = layout.size[axis] != 0 ? layout.size[axis] : cube.side;
    }
    std::array<std::ptrdiff_t, 3> distance{};
    distance[fast] = std::abs(layout.spacing);
    distance[middle] = distance[fast] * size[fast] + layout.gap;
    distance[slow] = distance[middle] * size[middle];
    _bytes.resize(static_cast<std::size_t>(distance[slow] * size[slow]));
    if (layout.spacing < 0) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            _first += distance[axis] * (size[axis] - 1);
            distance[axis] = -distance[axis];
        }
    }
    _size = {size[0], size[1], size[2]};
    _increments = {static_cast<int>(distance[0]), static_cast<int>(distance[1]), static_cast<int>(distance[2])};
    std::array<int, 3> at{};
    for (at[slow] = 0; at[slow] < size[slow]; ++at[slow]) {
        for (at[middle] = 0; at[middle] < size[middle]; ++at[middle]) {
            for (at[fast] = 0; at[fast] < size[fast]; ++at[fast]) {
                std::ptrdiff_t const place = _first + at[0] * distance[0] + at[1] * distance[1] + at[2] * distance[2];
                _bytes[static_cast<std::size_t>(place)] = cube.voxels[cube.index(at[0], at[1], at[2])];
            }
        }
    }
}

plain::ScanArguments BenchVolume::arguments(unsigned int step) const {
    return {_bytes.data() + _first, _increments, step, {0, 0, 0}, _size};
}

} // namespace tamo::bench
