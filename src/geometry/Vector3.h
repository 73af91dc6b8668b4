// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>

namespace tamo {

/// Holds a value per axis in double precision: where volumes and cameras stand in space, rather than vertices.
using Vector3 = std::array<double, 3>;

inline double dot(Vector3 const& a, Vector3 const& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

inline Vector3 cross(Vector3 const& a, Vector3 const& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

} // namespace tamo
