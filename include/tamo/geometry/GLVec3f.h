// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cmath>

/// Holds three single-precision components: a direction, a normal or an RGB colour.
///
/// All arithmetic is component-wise, in x, y, z order and in single precision. Nothing is guarded against a zero
/// length: normalising the zero vector yields three NaN, which callers tolerate or avoid. Never throws.
struct GLVec3f {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    constexpr GLVec3f() = default;
    constexpr GLVec3f(float xIn, float yIn, float zIn) : x(xIn), y(yIn), z(zIn) {}

    constexpr GLVec3f& operator+=(GLVec3f const& other) {
        x += other.x;
        y += other.y;
        z += other.z;
        return *this;
    }

    /// Multiplies every component by `factor`.
    constexpr GLVec3f& operator*=(float factor) {
        x *= factor;
        y *= factor;
        z *= factor;
        return *this;
    }

    /// Returns (a.y b.z - a.z b.y, a.z b.x - a.x b.z, a.x b.y - a.y b.x), where a is this vector.
    [[nodiscard]] constexpr GLVec3f cross(GLVec3f const& b) const {
        return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x};
    }

    /// Returns the cross product divided by its length; three NaN where the product is zero.
    [[nodiscard]] GLVec3f normalizedCross(GLVec3f const& b) const {
        GLVec3f product = cross(b);
        product.normalize();
        return product;
    }

    [[nodiscard]] constexpr float dot(GLVec3f const& b) const { return x * b.x + y * b.y + z * b.z; }

    [[nodiscard]] float length() const { return std::sqrt(x * x + y * y + z * z); }

    /// Divides every component by the length; the zero vector becomes three NaN.
    void normalize() {
        float const size = length();
        x /= size;
        y /= size;
        z /= size;
    }

    friend constexpr GLVec3f operator+(GLVec3f a, GLVec3f const& b) { return a += b; }
    friend constexpr GLVec3f operator-(GLVec3f const& a, GLVec3f const& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend constexpr GLVec3f operator*(GLVec3f a, float factor) { return a *= factor; }
    friend constexpr bool operator==(GLVec3f const& a, GLVec3f const& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    friend constexpr bool operator!=(GLVec3f const& a, GLVec3f const& b) { return !(a == b); }
};
