// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>

namespace tamo::test {

/// One value for x, y and z, reachable by axis number.
using Triple = std::array<int, 3>;

inline Triple operator+(Triple const& a, Triple const& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
inline Triple operator-(Triple const& a, Triple const& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
inline int dot(Triple const& a, Triple const& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
inline Triple cross(Triple const& a, Triple const& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Returns the place of a corner in the unit cell.
inline Triple cellCorner(unsigned int corner) {
    return {static_cast<int>(corner % 2), static_cast<int>(corner / 2 % 2), static_cast<int>(corner / 4)};
}

} // namespace tamo::test
