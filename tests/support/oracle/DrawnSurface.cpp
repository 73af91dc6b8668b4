// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/DrawnSurface.h"

#include <tamo/surface/TAMO.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>

namespace tamo::test {

HalfPoint operator+(HalfPoint const& a, HalfPoint const& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
HalfPoint operator-(HalfPoint const& a, HalfPoint const& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
HalfPoint cross(HalfPoint const& a, HalfPoint const& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
int dot(HalfPoint const& a, HalfPoint const& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
HalfPoint normalOf(HalfTriangle const& triangle) { return cross(triangle[1] - triangle[0], triangle[2] - triangle[0]); }

std::vector<std::array<unsigned int, 3>> drawnIndices(GLPolygon const& polygon) {
    std::vector<std::array<unsigned int, 3>> indices;
    for (unsigned int i = 2; i < polygon.size(); ++i) {
        if (polygon.type() != 5) {
            indices.push_back({0, i - 1, i});
        } else if (i % 2 == 0) {
            indices.push_back({i - 2, i - 1, i});
        } else {
            // Every other triangle of a strip takes its first two vertices in exchange.
            indices.push_back({i - 1, i - 2, i});
        }
    }
    return indices;
}

HalfPoint halfPoint(GLPolygon const& polygon, unsigned int i) {
    HalfPoint point{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        float const twice = polygon.vData(i)[3 + axis] * 2;
        point[axis] = static_cast<int>(twice);
        if (static_cast<float>(point[axis]) != twice) {
            throw std::domain_error("a vertex lies between half voxels");
        }
    }
    return point;
}

std::vector<HalfTriangle> drawnTriangles(GLPolygon const& polygon) {
    std::vector<HalfTriangle> triangles;
    for (auto const& [a, b, c] : drawnIndices(polygon)) {
        triangles.push_back({halfPoint(polygon, a), halfPoint(polygon, b), halfPoint(polygon, c)});
    }
    return triangles;
}

std::vector<HalfTriangle> drawnTriangles(GLObject const& object) {
    std::vector<HalfTriangle> triangles;
    for (GLPolygon const* polygon : object) {
        std::vector<HalfTriangle> const own = drawnTriangles(*polygon);
        triangles.insert(triangles.end(), own.begin(), own.end());
    }
    return triangles;
}

std::vector<HalfEdge> outlineOf(std::vector<HalfTriangle> const& triangles) {
    std::map<HalfEdge, int> surplus;
    for (HalfTriangle const& triangle : triangles) {
        for (std::size_t i = 0; i < 3; ++i) {
            HalfPoint const& from = triangle[i];
            HalfPoint const& to = triangle[(i + 1) % 3];
            ++surplus[{from, to}];
            --surplus[{to, from}];
        }
    }
    std::vector<HalfEdge> outline;
    for (auto const& [edge, count] : surplus) {
        outline.insert(outline.end(), static_cast<std::size_t>(std::max(count, 0)), edge);
    }
    return outline;
}

bool isOnCellFace(HalfEdge const& edge) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (edge[0][axis] == edge[1][axis] && edge[0][axis] != 1) {
            return true;
        }
    }
    return false;
}

std::vector<unsigned int> configurationsWithABadNormal(GLObjectList const& list) {
    std::vector<unsigned int> found;
    for (unsigned int configuration = 0; configuration < list.size(); ++configuration) {
        for (GLPolygon const* polygon : *list[configuration]) {
            for (unsigned int i = 0; i < polygon->size(); ++i) {
                // The comparison is false for a length that is no number.
                if (!(std::fabs(GLVec3f(polygon->normal(i)).length() - 1) < 1e-5F)) {
                    found.push_back(configuration);
                }
            }
        }
    }
    return found;
}

bool opposes(HalfTriangle const& triangle, GLVec3f const& normal) {
    HalfPoint const n = normalOf(triangle);
    GLVec3f const face(static_cast<float>(n[0]), static_cast<float>(n[1]), static_cast<float>(n[2]));
    return face.dot(normal) < -1e-5F;
}

SystemList::SystemList(Neighborhood::NHConfig config) { GLObjectListForNeighborhood(config, _list); }

} // namespace tamo::test
