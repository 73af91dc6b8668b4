// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/geometry/GLAccess3f.h>
#include <tamo/geometry/GLConstAccess3f.h>

#include <array>

/// Holds the eight corner positions of the unit cell; corner i lies at (bit 0, bit 1, bit 2 of i).
///
/// Constant after construction; not copyable, because its accessors view its own floats.
class TAMO_EXPORT GLUnitCube {
  public:
    GLUnitCube();
    GLUnitCube(GLUnitCube const&) = delete;
    GLUnitCube& operator=(GLUnitCube const&) = delete;

    /// Returns the position of corner i, 0 to 7; another index stops the program with the standard library's assertion.
    [[nodiscard]] GLConstAccess3f const& vertex(unsigned int i) const;

  private:
    std::array<float, 24> _positions;
    std::array<GLAccess3f, 8> _accessors;
};
