// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLtVec3.h>

#include <cstddef>

namespace Kade {

/// Stands in for the callers' image class where that library is absent: a non-owning view of a byte volume.
///
/// Voxel (x, y, z) is `firstVoxel()[x * increments().x + y * increments().y + z * increments().z]`. The buffer must
/// outlive the view. A scan refuses a view with an increment that 32 bits do not hold, such as a dense one with slices
/// of 2^31 voxels or more. Never throws.
class CImage {
  public:
    /// Views a dense volume: x runs fastest, then y, then z. `size` is in voxels.
    CImage(unsigned char const* firstVoxel, GLtVec3<int> const& size)
        : CImage(firstVoxel, size,
                 {1, static_cast<std::ptrdiff_t>(size.x), static_cast<std::ptrdiff_t>(size.x) * size.y}) {}

    /// Views a volume with any layout; `increments` are counted in voxels and may be negative.
    CImage(unsigned char const* firstVoxel, GLtVec3<int> const& size, GLtVec3<std::ptrdiff_t> const& increments)
        : _firstVoxel(firstVoxel), _size(size), _increments(increments) {}

    [[nodiscard]] unsigned char const* firstVoxel() const { return _firstVoxel; }
    [[nodiscard]] GLtVec3<int> const& size() const { return _size; }
    [[nodiscard]] GLtVec3<std::ptrdiff_t> const& increments() const { return _increments; }

  private:
    unsigned char const* _firstVoxel;
    GLtVec3<int> _size;
    GLtVec3<std::ptrdiff_t> _increments;
};

} // namespace Kade
