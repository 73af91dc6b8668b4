// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

namespace {

GLVec3f normalized(GLVec3f v) {
    v.normalize();
    return v;
}

} // namespace

void GLPolygon::setNormals(GLVec3f const& n) {
    for (unsigned int i = 0; i < _count; ++i) {
        normal(i) = n;
    }
}

bool GLPolygon::setNormals() {
    if (_count < 3) {
        return false;
    }
    if (_count == 3) {
        setNormals((vertex(1) - vertex(0)).normalizedCross(vertex(2) - vertex(0)));
    } else if (_strip) {
        setStripNormals();
    } else if (_fan) {
        setFanNormals();
    } else {
        setPlainNormals();
    }
    return true;
}

void GLPolygon::setStripNormals() {
    unsigned int const last = _count - 1;
    auto const edge = [this](unsigned int a, unsigned int b) { return vertex(a) - vertex(b); };

    normal(0) = edge(1, 0).normalizedCross(edge(2, 0));
    normal(1) = edge(2, 1).normalizedCross(edge(0, 1));
    for (unsigned int k = 2; k < last; ++k) {
        // The first triangle weighs by its area, the second does not; strips have always been shaded so.
        normal(k) = normalized(edge(k - 2, k).cross(edge(k - 1, k)) + edge(k - 2, k).normalizedCross(edge(k + 1, k)));
    }
    normal(last) = edge(last - 2, last).normalizedCross(edge(last - 1, last));
}

void GLPolygon::setFanNormals() {
    unsigned int const last = _count - 1;
    auto const edge = [this](unsigned int a, unsigned int b) { return vertex(a) - vertex(b); };
    // The sum of the unit normals of the two fan triangles that meet at rim vertex k.
    auto const rim = [&](unsigned int before, unsigned int k, unsigned int after) {
        return normalized(edge(0, k).normalizedCross(edge(before, k)) + edge(after, k).normalizedCross(edge(0, k)));
    };

    for (unsigned int k = 2; k < last; ++k) {
        normal(k) = rim(k - 1, k, k + 1);
    }
    if (_closed) {
        // The last vertex repeats vertex 1, so the rim neighbour before vertex 1 is vertex last - 1.
        GLVec3f const seam =
            normalized(edge(2, 1).normalizedCross(edge(0, 1)) + edge(0, 1).normalizedCross(edge(last - 1, 1)));
        normal(1) = seam;
        normal(last) = seam;
        normal(last - 1) = normalized(edge(1, last - 1).normalizedCross(edge(0, last - 1)) +
                                      edge(0, last - 1).normalizedCross(edge(last - 2, last - 1)));
    } else {
        normal(1) = edge(2, 1).normalizedCross(edge(0, 1));
        normal(last) = edge(0, last).normalizedCross(edge(last - 1, last));
    }

    // Vertices 1 to last - 1, for open fans too: the last rim vertex of an open fan does not take part.
    GLVec3f sum = normal(1);
    for (unsigned int k = 2; k < last; ++k) {
        sum += normal(k);
    }
    normal(0) = normalized(sum);
}

void GLPolygon::setPlainNormals() {
    unsigned int const last = _count - 1;
    auto const corner = [this](unsigned int before, unsigned int k, unsigned int after) {
        return (vertex(after) - vertex(k)).normalizedCross(vertex(before) - vertex(k));
    };
    for (unsigned int k = 1; k < last; ++k) {
        normal(k) = corner(k - 1, k, k + 1);
    }
    normal(0) = corner(last, 0, 1);
    normal(last) = corner(last - 1, last, 0);
}
