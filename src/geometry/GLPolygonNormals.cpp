// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

namespace {

GLVec3f normalized(GLVec3f v) {
    v.normalize();
    return v;
}

// The rules below read edge(a, b) as the edge to vertex a from vertex b.
auto edgesOf(GLPolygon const& polygon) {
    return [&polygon](unsigned int a, unsigned int b) { return polygon.vertex(a) - polygon.vertex(b); };
}

void setStripNormals(GLPolygon& polygon) {
    unsigned int const last = polygon.size() - 1;
    auto const edge = edgesOf(polygon);

    polygon.normal(0) = edge(1, 0).normalizedCross(edge(2, 0));
    polygon.normal(1) = edge(2, 1).normalizedCross(edge(0, 1));
    for (unsigned int k = 2; k < last; ++k) {
        // The first cross product keeps its length and so weighs by its triangle's area; the second does not. Both run
        // from the lower to the higher neighbour, whichever way the strip turns there. Callers see these very floats.
        polygon.normal(k) =
            normalized(edge(k - 2, k).cross(edge(k - 1, k)) + edge(k - 2, k).normalizedCross(edge(k + 1, k)));
    }
    polygon.normal(last) = edge(last - 2, last).normalizedCross(edge(last - 1, last));
}

void setFanNormals(GLPolygon& polygon) {
    unsigned int const last = polygon.size() - 1;
    auto const edge = edgesOf(polygon);
    // The sum of the unit normals of the two fan triangles that meet at rim vertex k.
    auto const rim = [&](unsigned int before, unsigned int k, unsigned int after) {
        return normalized(edge(0, k).normalizedCross(edge(before, k)) + edge(after, k).normalizedCross(edge(0, k)));
    };

    for (unsigned int k = 2; k < last; ++k) {
        polygon.normal(k) = rim(k - 1, k, k + 1);
    }
    if (polygon.isClosed()) {
        // The last vertex repeats vertex 1, so the rim neighbour before vertex 1 is vertex last - 1.
        GLVec3f const seam = rim(last - 1, 1, 2);
        polygon.normal(1) = seam;
        polygon.normal(last) = seam;
        polygon.normal(last - 1) = rim(last - 2, last - 1, 1);
    } else {
        polygon.normal(1) = edge(2, 1).normalizedCross(edge(0, 1));
        polygon.normal(last) = edge(0, last).normalizedCross(edge(last - 1, last));
    }

    // Vertices 1 to last - 1, for open fans too: the last rim vertex of an open fan does not take part.
    GLVec3f sum = polygon.normal(1);
    for (unsigned int k = 2; k < last; ++k) {
        sum += polygon.normal(k);
    }
    polygon.normal(0) = normalized(sum);
}

void setPlainNormals(GLPolygon& polygon) {
    unsigned int const last = polygon.size() - 1;
    auto const edge = edgesOf(polygon);
    auto const corner = [&](unsigned int before, unsigned int k, unsigned int after) {
        return edge(after, k).normalizedCross(edge(before, k));
    };
    for (unsigned int k = 1; k < last; ++k) {
        polygon.normal(k) = corner(k - 1, k, k + 1);
    }
    polygon.normal(0) = corner(last, 0, 1);
    polygon.normal(last) = corner(last - 1, last, 0);
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
        auto const edge = edgesOf(*this);
        setNormals(edge(1, 0).normalizedCross(edge(2, 0)));
    } else if (_strip) {
        setStripNormals(*this);
    } else if (_fan) {
        setFanNormals(*this);
    } else {
        setPlainNormals(*this);
    }
    return true;
}
