// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/DrawnSurface.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>

namespace tamo::test {

namespace {

// GL_TRIANGLE_STRIP.
constexpr unsigned int kTriangleStrip = 5;

} // namespace

double length(HalfPoint const& p) { return std::sqrt(static_cast<double>(dot(p, p))); }
HalfPoint normalOf(HalfTriangle const& triangle) { return cross(triangle[1] - triangle[0], triangle[2] - triangle[0]); }
// The normal has twice the area in half voxels, of which four make a squared voxel side.
double areaOf(HalfTriangle const& triangle) { return length(normalOf(triangle)) / 8; }

std::vector<std::array<unsigned int, 3>> drawnIndices(GLPolygon const& polygon) {
    std::vector<std::array<unsigned int, 3>> indices;
    for (unsigned int i = 2; i < polygon.size(); ++i) {
        if (polygon.type() != kTriangleStrip) {
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

std::map<HalfEdge, int> edgeCounts(std::vector<HalfTriangle> const& triangles) {
    std::map<HalfEdge, int> uses;
    for (HalfTriangle const& triangle : triangles) {
        for (std::size_t i = 0; i < 3; ++i) {
            ++uses[{triangle.at(i), triangle.at((i + 1) % 3)}];
        }
    }
    return uses;
}

std::vector<HalfEdge> outlineOf(std::vector<HalfTriangle> const& triangles) {
    std::map<HalfEdge, int> const uses = edgeCounts(triangles);
    std::vector<HalfEdge> outline;
    for (auto const& [edge, count] : uses) {
        auto const reverse = uses.find({edge[1], edge[0]});
        int const surplus = count - (reverse == uses.end() ? 0 : reverse->second);
        outline.insert(outline.end(), static_cast<std::size_t>(std::max(surplus, 0)), edge);
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

bool hasInnerEdgeOnCellFace(std::vector<HalfTriangle> const& triangles) {
    std::map<HalfEdge, int> const uses = edgeCounts(triangles);
    return std::any_of(uses.begin(), uses.end(), [&](auto const& use) {
        HalfEdge const& edge = use.first;
        return isOnCellFace(edge) && uses.count({edge[1], edge[0]}) == 1;
    });
}

std::vector<unsigned int> configurationsWithABadNormal(GLObjectList const& list) {
    std::vector<unsigned int> found;
    for (unsigned int configuration = 0; configuration < list.size(); ++configuration) {
        for (GLPolygon const* polygon : *list[configuration]) {
            for (unsigned int i = 0; i < polygon->size(); ++i) {
                // The comparison is false for NaN.
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

std::vector<unsigned int> turnedConfigurations(Neighborhood::NHConfig config) {
    switch (config) {
    case Neighborhood::N6:
        return {0xbe, 0xd7, 0xde, 0xeb, 0xed};
    case Neighborhood::N14I:
        return {0x2e, 0x3a, 0x4e, 0x5c, 0x72, 0x74, 0x87, 0x8b, 0x8d,
                0x93, 0x95, 0xa3, 0xa9, 0xb1, 0xc5, 0xc9, 0xd1, 0xe1};
    default:
        return {};
    }
}

} // namespace tamo::test
