// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/ScannedSurface.h"

#include <tamo/surface/TAMO.h>

#include <cmath>

namespace tamo::test {

ScannedSurface::ScannedSurface(VoxelSet const& set, GLObjectList const& list) {
    PlainVolume const volume = set.volume();
    EXPECT_TRUE(wrapGlobal(volume.data(), volume.increments(), 1, {0, 0, 0}, toVec3(set.size()), list, *this));
}

void ScannedSurface::fetch(GLObject& object, GLCoord3f const& offset) {
    HalfPoint const cell = {static_cast<int>(2 * offset.x), static_cast<int>(2 * offset.y),
                            static_cast<int>(2 * offset.z)};
    for (GLPolygon const* polygon : object) {
        for (HalfTriangle const& triangle : drawnTriangles(*polygon)) {
            _faces.push_back({{cell + triangle[0], cell + triangle[1], cell + triangle[2]}, _polygons});
        }
        ++_polygons;
    }
}

void ScannedSurface::fetch(GLObject& /*object*/) { ADD_FAILURE() << "a cell without its position"; }

std::int64_t ScannedSurface::volume48() const {
    std::int64_t sum = 0;
    for (Face const& face : _faces) {
        sum += dot(face.corners[0], cross(face.corners[1], face.corners[2]));
    }
    return sum;
}

double ScannedSurface::area() const {
    double sum = 0;
    for (Face const& face : _faces) {
        sum += areaOf(face.corners);
    }
    return sum;
}

double ScannedSurface::windingNumber(HalfPoint const& point) const {
    double sum = 0;
    for (Face const& face : _faces) {
        HalfPoint const a = face.corners[0] - point;
        HalfPoint const b = face.corners[1] - point;
        HalfPoint const c = face.corners[2] - point;
        // Half the solid angle: A. van Oosterom and J. Strackee, "The Solid Angle of a Plane Triangle", 1983.
        double const below =
            length(a) * length(b) * length(c) + dot(a, b) * length(c) + dot(b, c) * length(a) + dot(c, a) * length(b);
        sum += std::atan2(static_cast<double>(dot(a, cross(b, c))), below);
    }
    constexpr double kTwoPi = 6.283185307179586;
    return sum / kTwoPi;
}

} // namespace tamo::test
