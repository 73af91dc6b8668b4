// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLPolygon.h>
#include <tamo/neighborhood/Neighborhood.h>
#include <tamo/objects/GLObjectList.h>

#include <array>
#include <cstdint>
#include <vector>

namespace tamo::test {

/// A point in half voxels: all vertices of a surface between unit cells have whole coordinates.
using HalfPoint = std::array<int, 3>;

/// A triangle as OpenGL draws it, counter-clockwise as seen from the outward side.
using HalfTriangle = std::array<HalfPoint, 3>;

HalfPoint operator+(HalfPoint const& a, HalfPoint const& b);
HalfPoint operator-(HalfPoint const& a, HalfPoint const& b);
HalfPoint cross(HalfPoint const& a, HalfPoint const& b);
int dot(HalfPoint const& a, HalfPoint const& b);
/// Returns the triangle's normal, of twice its area in length.
HalfPoint normalOf(HalfTriangle const& triangle);

/// Returns the vertex indices of the triangles that the polygon's primitive draws.
std::vector<std::array<unsigned int, 3>> drawnIndices(GLPolygon const& polygon);
/// Returns vertex i, moved by whole voxels; throws where it does not lie on half voxels.
HalfPoint halfPoint(GLPolygon const& polygon, unsigned int i);
std::vector<HalfTriangle> drawnTriangles(GLPolygon const& polygon);
std::vector<HalfTriangle> drawnTriangles(GLObject const& object);

/// A directed edge.
using HalfEdge = std::array<HalfPoint, 2>;

/// Returns the edges that are left once those in opposite directions have cancelled, sorted.
std::vector<HalfEdge> outlineOf(std::vector<HalfTriangle> const& triangles);

/// Tells whether both ends lie on one face of the unit cell.
bool isOnCellFace(HalfEdge const& edge);

/// Lists the configurations with a normal that is not of unit length, once for each such normal.
std::vector<unsigned int> configurationsWithABadNormal(GLObjectList const& list);

/// Tells whether the triangle is turned away from the direction `normal`.
bool opposes(HalfTriangle const& triangle, GLVec3f const& normal);

/// Owns the list of one system, as `GLObjectListForNeighborhood` makes it.
class SystemList {
  public:
    explicit SystemList(Neighborhood::NHConfig config);
    [[nodiscard]] GLObjectList const& list() const { return _list; }
    [[nodiscard]] GLObject const& operator[](unsigned int configuration) const { return *_list[configuration]; }

  private:
    GLObjectList _list;
};

/// The systems whose lists differ: the others share that of N14II.
constexpr Neighborhood::NHConfig kSurfaceSystems[] = {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I,
                                                      Neighborhood::N14II};

} // namespace tamo::test
