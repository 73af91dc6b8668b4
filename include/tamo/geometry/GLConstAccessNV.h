// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLConstAccess3f.h>

/// Views one whole vertex record of a const polygon, its position and its normal, for reading. Never throws.
///
/// Valid as long as the polygon's array is neither resized, cleared nor destroyed.
class GLConstAccessNV {
  public:
    /// Views three floats at `position` and three at `normal`.
    GLConstAccessNV(float const* position, float const* normal) : _vertex(position), _normal(normal) {}

    [[nodiscard]] GLConstAccess3f const& vertex() const { return _vertex; }
    [[nodiscard]] GLConstAccess3f const& normal() const { return _normal; }

  private:
    GLConstAccess3f _vertex;
    GLConstAccess3f _normal;
};
