// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLAccess3f.h>

/// Views one whole vertex record of a polygon, its position and its normal, for reading and writing. Never throws.
///
/// A record that is const gives read-only views, but a copy of it gives writable ones: hand out a `GLConstAccessNV`
/// where nothing may be written. Valid as long as the polygon's array is neither resized, cleared nor destroyed.
class GLAccessNV {
  public:
    /// Views three floats at `position` and three at `normal`.
    GLAccessNV(float* position, float* normal) : _vertex(position), _normal(normal) {}

    [[nodiscard]] GLAccess3f& vertex() { return _vertex; }
    [[nodiscard]] GLAccess3f& normal() { return _normal; }
    [[nodiscard]] GLConstAccess3f const& vertex() const { return _vertex; }
    [[nodiscard]] GLConstAccess3f const& normal() const { return _normal; }

  private:
    GLAccess3f _vertex;
    GLAccess3f _normal;
};
