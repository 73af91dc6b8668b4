// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLConstAccess3f.h>
#include <tamo/geometry/GLVec3f.h>

/// Views three consecutive floats that somebody else owns, for reading and writing: a vertex position or a normal.
///
/// Assignment writes through to the viewed floats; copy construction makes a second view of the same floats. A view
/// that is const gives no write access, but a copy of it does: hand out a `GLConstAccess3f` where nothing may be
/// written. The view becomes invalid when the owner's storage is resized, cleared or destroyed. Never throws.
class GLAccess3f : public GLConstAccess3f {
  public:
    /// Views `data[0]` to `data[2]`.
    explicit GLAccess3f(float* data) : GLConstAccess3f(data) {}
    GLAccess3f(GLAccess3f const&) = default;
    ~GLAccess3f() = default;

    GLAccess3f& operator=(GLVec3f const& value) {
        x() = value.x;
        y() = value.y;
        z() = value.z;
        return *this;
    }

    /// Copies the other's three floats into the viewed ones; does not make this a view of the other's storage. Reads
    /// all three first, so that the views may overlap.
    GLAccess3f& operator=(GLAccess3f const& other) { return *this = GLVec3f(other); }

    /// Adds `value` to the viewed floats; a view on the right side may overlap this one.
    GLAccess3f& operator+=(GLVec3f value) { return *this = *this + value; }
    /// Subtracts `value` from the viewed floats; a view on the right side may overlap this one.
    GLAccess3f& operator-=(GLVec3f value) { return *this = *this - value; }
    GLAccess3f& operator*=(float factor) { return *this = GLVec3f(*this) * factor; }

    using GLConstAccess3f::x;
    using GLConstAccess3f::y;
    using GLConstAccess3f::z;
    [[nodiscard]] float& x() { return floats()[0]; }
    [[nodiscard]] float& y() { return floats()[1]; }
    [[nodiscard]] float& z() { return floats()[2]; }

  private:
    // Both constructors start from floats that may be written, and a view is never pointed elsewhere.
    [[nodiscard]] float* floats() { return const_cast<float*>(_data); }
};
