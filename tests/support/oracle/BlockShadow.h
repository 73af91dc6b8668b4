// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLVec3f.h>

#include <array>
#include <vector>

namespace tamo::test {

/// Returns the corners of the surface of a block of foreground under the system N14II, the block's centre being the
/// origin.
///
/// `sides` is the block's size and `step` the distance between samples. The surface passes halfway along every link
/// from the outermost samples to the background, so that an edge of the block is sharp where the system has a link
/// across it and bevelled where it has none.
std::vector<GLVec3f> makeBlockCorners(std::array<float, 3> const& sides, float step);

/// Returns the area that the convex hull of `points` covers, seen along `right` x `up`; both are unit vectors.
double computeShadowArea(std::vector<GLVec3f> const& points, GLVec3f const& right, GLVec3f const& up);

} // namespace tamo::test
