// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

/// Holds one value per axis: `GLtVec3<int>` carries a volume's address increments, origin and extent, in voxels.
template <typename T> struct GLtVec3 {
    T x{};
    T y{};
    T z{};

    constexpr GLtVec3() = default;
    constexpr GLtVec3(T xIn, T yIn, T zIn) : x(xIn), y(yIn), z(zIn) {}

    friend constexpr bool operator==(GLtVec3 const& a, GLtVec3 const& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    friend constexpr bool operator!=(GLtVec3 const& a, GLtVec3 const& b) { return !(a == b); }
};
