// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace Kade {

/// Stands for a caller's own image class: it owns its voxels, z runs fastest, and no accessor is named as ours.
class CImage {
  public:
    CImage(long width, long height, long depth)
        : _shape{width, height, depth}, _voxels(static_cast<std::size_t>(width * height * depth)) {}

    std::array<long, 3> const& shape() const { return _shape; }
    std::array<long, 3> strides() const { return {_shape[1] * _shape[2], _shape[2], 1}; }
    unsigned char const* data() const { return _voxels.data(); }
    void paint(long x, long y, long z) { _voxels[static_cast<std::size_t>((x * _shape[1] + y) * _shape[2] + z)] = 1; }

  private:
    std::array<long, 3> _shape;
    std::vector<unsigned char> _voxels;
};

} // namespace Kade
