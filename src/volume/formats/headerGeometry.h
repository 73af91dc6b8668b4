// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../VolumeHeader.h"

#include <string>

namespace tamo::volume {

/// Returns the products of the coordinates of two vectors, one by one; no zero among them is negative.
inline Vector3 scaled(Vector3 const& a, Vector3 const& b) {
    return {a[0] * b[0] + 0.0, a[1] * b[1] + 0.0, a[2] * b[2] + 0.0};
}

/// Gives a header the spacing of its file, in millimetres. A negative one turns the axis round, and a note says so.
void setSpacing(VolumeHeader& header, Vector3 const& spacing);

/// Returns how many millimetres a file's unit of length is; a note says so where it is not known. Keeps the unit's name
/// unless it is empty.
double millimetresOf(VolumeHeader& header, std::string const& unit);

} // namespace tamo::volume
