// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/plainWalk.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tamo::bench {

/// A cube of voxels of 0 and 1; x runs fastest, then y.
struct Cube {
    [[nodiscard]] std::size_t index(int x, int y, int z) const {
        auto const n = static_cast<std::size_t>(side);
        return (static_cast<std::size_t>(z) * n + static_cast<std::size_t>(y)) * n + static_cast<std::size_t>(x);
    }

    int side;
    std::vector<unsigned char> voxels;
};

/// One ball that all but fills the cube: a surface cell in some hundred to a thousand.
Cube makeBall(int side);
/// A gyroid of such a period that about a fifth of the cells are cut.
Cube makeGyroid(int side);
/// Balls of many sizes that overlap and fill half of the cube.
Cube makeBalls(int side);
/// Foreground everywhere.
Cube makeFull(int side);
/// Every voxel for itself, one half of them foreground.
Cube makeNoise(int side);
/// A volume read from a file, every k-th voxel in the middle of the cube; k is the smallest with which it fits.
Cube makeBrain(int side, std::string const& file);

/// How a benchmark's voxels lie in memory.
struct Layout {
    char const* name;
    /// The axes from the fastest to the slowest.
    std::size_t order[3];
    /// Distance between neighbours along the fastest axis; negative where all addresses fall.
    int spacing = 1;
    /// Unused bytes after each row.
    int gap = 0;
    /// How many voxels of the cube are taken along each axis; 0 for all.
    int size[3] = {0, 0, 0};
};

/// A cube, or a slice of it, laid out in memory for a scan.
class BenchVolume {
  public:
    BenchVolume(Cube const& cube, Layout const& layout);

    /// Returns the arguments of a scan of all voxels.
    [[nodiscard]] plain::ScanArguments arguments(unsigned int step) const;
    [[nodiscard]] std::vector<unsigned char> const& bytes() const { return _bytes; }

  private:
    GLtVec3<int> _size;
    std::vector<unsigned char> _bytes;
    std::ptrdiff_t _first;
    GLtVec3<int> _increments;
};

} // namespace tamo::bench
