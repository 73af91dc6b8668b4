// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace tamo::bench {

/// A volume of one byte per voxel; x runs fastest, then y.
struct NiftiVolume {
    [[nodiscard]] unsigned char at(int x, int y, int z) const {
        auto const row = static_cast<std::size_t>(z) * static_cast<std::size_t>(size[1]) + static_cast<std::size_t>(y);
        return voxels[row * static_cast<std::size_t>(size[0]) + static_cast<std::size_t>(x)];
    }

    std::array<int, 3> size;
    std::vector<unsigned char> voxels;
};

/// Reads a NIfTI-1 file of unsigned bytes, gzipped or not, of this machine's byte order.
///
/// Throws `std::runtime_error` that names the file and what was expected.
NiftiVolume readNifti(std::string const& file);

} // namespace tamo::bench
