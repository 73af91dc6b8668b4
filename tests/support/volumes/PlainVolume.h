// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/volumes/Triple.h"

#include <tamo/geometry/GLtVec3.h>

#include <array>
#include <cstddef>
#include <vector>

namespace tamo::test {

inline GLtVec3<int> toVec3(Triple const& t) { return {t[0], t[1], t[2]}; }

/// How the voxels of a volume lie in memory.
struct VolumeLayout {
    /// The axes from the fastest to the slowest.
    std::array<std::size_t, 3> order = {0, 1, 2};
    /// The axes along which addresses fall.
    std::array<bool, 3> backwards = {};
    /// Distance between voxels along the fastest axis.
    int spacing = 1;
    /// Unused bytes after every row and every plane.
    int gap = 0;
};

/// Owns a volume of bytes in any layout.
///
/// All bytes start as a filler that is neither 0 nor 1 and odd: wherever a scan reads one, the configuration differs.
class PlainVolume {
  public:
    static constexpr unsigned char kFiller = 0xA5;

    /// Makes a volume whose voxels have the coordinates `lower` to `lower + size - 1`; (0, 0, 0) has to be among them.
    PlainVolume(Triple const& lower, Triple const& size, VolumeLayout const& layout = {}) {
        auto const [fast, middle, slow] = layout.order;
        std::array<std::ptrdiff_t, 3> distance{};
        distance[fast] = layout.spacing;
        distance[middle] = distance[fast] * size[fast] + layout.gap;
        distance[slow] = distance[middle] * size[middle] + layout.gap;
        _bytes.assign(static_cast<std::size_t>(distance[slow] * size[slow]), kFiller);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            _zero += distance[axis] * (layout.backwards[axis] ? size[axis] - 1 + lower[axis] : -lower[axis]);
            _increments[axis] = static_cast<int>(layout.backwards[axis] ? -distance[axis] : distance[axis]);
        }
    }

    /// Makes a dense volume from (0, 0, 0) to `size - 1` in which every voxel is `value`.
    static PlainVolume filled(Triple const& size, unsigned char value) {
        PlainVolume volume({0, 0, 0}, size);
        volume._bytes.assign(volume._bytes.size(), value);
        return volume;
    }

    [[nodiscard]] unsigned char& at(int x, int y, int z) { return _bytes[index(x, y, z)]; }
    [[nodiscard]] unsigned char at(int x, int y, int z) const { return _bytes[index(x, y, z)]; }

    /// Returns the address of voxel (0, 0, 0).
    [[nodiscard]] unsigned char const* data() const { return _bytes.data() + _zero; }
    [[nodiscard]] GLtVec3<int> increments() const { return toVec3(_increments); }

  private:
    [[nodiscard]] std::size_t index(int x, int y, int z) const {
        return static_cast<std::size_t>(_zero + std::ptrdiff_t{x} * _increments[0] +
                                        std::ptrdiff_t{y} * _increments[1] + std::ptrdiff_t{z} * _increments[2]);
    }

    std::vector<unsigned char> _bytes;
    std::ptrdiff_t _zero = 0;
    Triple _increments{};
};

} // namespace tamo::test
