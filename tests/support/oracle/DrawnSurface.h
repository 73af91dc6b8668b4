// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/volumes/Triple.h"

#include <tamo/geometry/GLPolygon.h>
#include <tamo/neighborhood/Neighborhood.h>
#include <tamo/objects/GLObjectList.h>

#include <array>
#include <map>
#include <vector>

namespace tamo::test {

/// A point in half voxels: all vertices of a surface between unit cells have whole coordinates.
using HalfPoint = Triple;

/// A triangle as OpenGL draws it, counter-clockwise as seen from the outward side.
using HalfTriangle = std::array<HalfPoint, 3>;

double length(HalfPoint const& p);
/// Returns the triangle's normal, of twice its area in length.
HalfPoint normalOf(HalfTriangle const& triangle);
/// Returns the triangle's area in squared voxel sides.
double areaOf(HalfTriangle const& triangle);

/// Returns the vertex indices of the triangles that the polygon's primitive draws.
std::vector<std::array<unsigned int, 3>> drawnIndices(GLPolygon const& polygon);
/// Returns vertex i; throws std::domain_error where it lies between half voxels.
HalfPoint halfPoint(GLPolygon const& polygon, unsigned int i);
std::vector<HalfTriangle> drawnTriangles(GLPolygon const& polygon);
std::vector<HalfTriangle> drawnTriangles(GLObject const& object);

/// A directed edge.
using HalfEdge = std::array<HalfPoint, 2>;

/// Returns how often the triangles run each edge in its direction.
std::map<HalfEdge, int> edgeCounts(std::vector<HalfTriangle> const& triangles);

/// Returns the edges that are left once those in opposite directions have cancelled, sorted.
std::vector<HalfEdge> outlineOf(std::vector<HalfTriangle> const& triangles);

/// Returns whether both ends lie on one face of the unit cell.
bool isOnCellFace(HalfEdge const& edge);

/// Returns whether an edge that the triangles run in both directions lies on a face of the unit cell.
bool hasInnerEdgeOnCellFace(std::vector<HalfTriangle> const& triangles);

/// Lists the configurations with a normal that is not of unit length, once per normal.
std::vector<unsigned int> configurationsWithABadNormal(GLObjectList const& list);

/// Returns whether the triangle is turned away from the direction `normal`.
bool opposes(HalfTriangle const& triangle, GLVec3f const& normal);

/// Lists the configurations with a triangle that is turned away from the link of one of its vertices. Under N6 the
/// start of a face diagonal's complement is chosen by the foreground's two lowest corners, which are not the diagonal:
/// five such fans run back over themselves. Under N14I one triangle is turned in each larger half of a path around the
/// centre link, and in each fan of three face corners with eight vertices.
std::vector<unsigned int> turnedConfigurations(Neighborhood::NHConfig config);

} // namespace tamo::test
