// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLVec3f.h>

/// Views three consecutive floats that somebody else owns, for reading: a vertex position or a normal of a const
/// polygon.
///
/// Copies view the same floats and are as read-only as the original; a view cannot be pointed at other floats. It
/// becomes invalid when the owner's storage is resized, cleared or destroyed. Never throws.
class GLConstAccess3f {
  public:
    /// Views `data[0]` to `data[2]`.
    explicit GLConstAccess3f(float const* data) : _data(data) {}
    GLConstAccess3f(GLConstAccess3f const&) = default;
    GLConstAccess3f& operator=(GLConstAccess3f const&) = delete;
    ~GLConstAccess3f() = default;

    [[nodiscard]] float x() const { return _data[0]; }
    [[nodiscard]] float y() const { return _data[1]; }
    [[nodiscard]] float z() const { return _data[2]; }

    /// Copies the viewed floats into a value.
    operator GLVec3f() const { return {_data[0], _data[1], _data[2]}; }

    friend GLVec3f operator+(GLConstAccess3f const& a, GLConstAccess3f const& b) { return GLVec3f(a) + GLVec3f(b); }
    friend GLVec3f operator-(GLConstAccess3f const& a, GLConstAccess3f const& b) { return GLVec3f(a) - GLVec3f(b); }

    /// Compares exactly, component by component: no tolerance, and NaN equals nothing.
    friend bool operator==(GLConstAccess3f const& a, GLConstAccess3f const& b) { return GLVec3f(a) == GLVec3f(b); }
    friend bool operator==(GLConstAccess3f const& a, GLVec3f const& b) { return GLVec3f(a) == b; }
    friend bool operator!=(GLConstAccess3f const& a, GLConstAccess3f const& b) { return !(a == b); }
    friend bool operator!=(GLConstAccess3f const& a, GLVec3f const& b) { return !(a == b); }

    /// Returns the squared distance from this point to `other`.
    [[nodiscard]] float squaredDistance(GLConstAccess3f const& other) const {
        GLVec3f const difference = other - *this;
        return difference.dot(difference);
    }

  private:
    // Writes through the pointer: it alone is made from floats that may be written.
    friend class GLAccess3f;

    float const* _data;
};
