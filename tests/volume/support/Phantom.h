// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// A volume that looks different from every side: noise from 0 to 1000, and on one of its faces a raised letter F, from
/// 3000 to 4000.
struct Phantom {
    std::array<int, 3> size{};
    /// x fastest, then y, then z.
    std::vector<std::int16_t> values;
    /// In mm, LPS: what formats that hold such things state of it.
    std::array<double, 3> spacing{1, 2, 3};
    std::array<double, 3> origin{-10.5, 20.25, 30};
    /// The directions of x, y and z: turned out of the axes of space, at right angles.
    std::array<std::array<double, 3>, 3> axes{};

    [[nodiscard]] std::int16_t at(int x, int y, int z) const {
        return values[static_cast<std::size_t>((z * size[1] + y) * size[0] + x)];
    }
};

/// Makes a phantom of a size of at least 7 x 9 x 2 voxels (the letter is 5 x 7), the letter on its last slice; smaller
/// ones have no letter.
Phantom makePhantom(int sizeX, int sizeY, int sizeZ);

/// Returns the values as the bytes of 16-bit numbers.
std::vector<unsigned char> voxelBytes(Phantom const& phantom, bool isBigEndian);
