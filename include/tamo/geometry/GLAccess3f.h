// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLVec3f.h>

/// Views three consecutive floats that somebody else owns: one vertex position or one normal of a polygon.
///
/// Assignment writes through to the viewed floats; copy construction makes a second view of the same floats. A view
/// that is const gives no write access; a copy of it, which need not be const, does. The view becomes invalid when the
/// owner's storage is resized, cleared or destroyed. Never throws.
class GLAccess3f {
  public:
    /// Views `data[0]` to `data[2]`.
    explicit GLAccess3f(float* data) : _data(data) {}
    GLAccess3f(GLAccess3f const&) = default;
    ~GLAccess3f() = default;

    GLAccess3f& operator=(GLVec3f const& value) {
        _data[0] = value.x;
        _data[1] = value.y;
        _data[2] = value.z;
        return *this;
    }

    /// Copies the other's three floats into the viewed ones; does not make this a view of the other's storage.
    GLAccess3f& operator=(GLAccess3f const& other) {
        GLVec3f const value = other;
        return *this = value;
    }

    GLAccess3f& operator+=(GLAccess3f const& other) {
        _data[0] += other._data[0];
        _data[1] += other._data[1];
        _data[2] += other._data[2];
        return *this;
    }

    GLAccess3f& operator*=(float factor) {
        _data[0] *= factor;
        _data[1] *= factor;
        _data[2] *= factor;
        return *this;
    }

    [[nodiscard]] float& x() { return _data[0]; }
    [[nodiscard]] float& y() { return _data[1]; }
    [[nodiscard]] float& z() { return _data[2]; }
    [[nodiscard]] float x() const { return _data[0]; }
    [[nodiscard]] float y() const { return _data[1]; }
    [[nodiscard]] float z() const { return _data[2]; }

    /// Copies the viewed floats into a value.
    operator GLVec3f() const { return {_data[0], _data[1], _data[2]}; }

    friend GLVec3f operator+(GLAccess3f const& a, GLAccess3f const& b) { return GLVec3f(a) + GLVec3f(b); }
    friend GLVec3f operator-(GLAccess3f const& a, GLAccess3f const& b) { return GLVec3f(a) - GLVec3f(b); }

    /// Compares exactly, component by component: no tolerance, and a non-number equals nothing.
    friend bool operator==(GLAccess3f const& a, GLAccess3f const& b) { return GLVec3f(a) == GLVec3f(b); }
    friend bool operator==(GLAccess3f const& a, GLVec3f const& b) { return GLVec3f(a) == b; }
    friend bool operator!=(GLAccess3f const& a, GLAccess3f const& b) { return !(a == b); }
    friend bool operator!=(GLAccess3f const& a, GLVec3f const& b) { return !(a == b); }

    /// Returns the squared distance from this point to `other`.
    [[nodiscard]] float squaredDistance(GLAccess3f const& other) const {
        GLVec3f const difference = other - *this;
        return difference.dot(difference);
    }

  private:
    float* _data;
};
