// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

/// Holds three single-precision coordinates: a position, or the offset that moves a polygon, in voxels.
///
/// A type apart from `GLVec3f`, so that an offset and a direction cannot be mistaken for each other. Never throws.
struct GLCoord3f {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    constexpr GLCoord3f() = default;
    constexpr GLCoord3f(float xIn, float yIn, float zIn) : x(xIn), y(yIn), z(zIn) {}

    friend constexpr bool operator==(GLCoord3f const& a, GLCoord3f const& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    friend constexpr bool operator!=(GLCoord3f const& a, GLCoord3f const& b) { return !(a == b); }
};
