// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/connectivity/GLTesselation.h>
#include <tamo/objects/GLObjectList.h>

/// Builds the polygons of all 256 cell configurations by cutting the polyhedra of a subdivision of the cell.
///
/// In each polyhedron every pair of a foreground and a background corner is cut at its midpoint; the cuts form one
/// polygon, counter-clockwise as seen from the background. The cut tetrahedron is that of A. Doi and A. Koide,
/// "An Efficient Method of Triangulating Equi-Valued Surfaces by Using Tetrahedral Cells", 1991.
class TAMO_EXPORT GLConnectivity {
  public:
    /// Replaces the contents of `list`, which must not be null, by 256 objects; slots 0 and 255 stay empty.
    ///
    /// With `reduce` set, a configuration's triangles are merged in pairs where their first normals are equal, then all
    /// its polygons into one fan around the cell centre where `makeTriangleFan` accepts them, then the triangles that
    /// are left in pairs whatever their normals: such a pair may be bent along its common edge.
    ///
    /// A polyhedron supports at most 8 cuts; a link cut to a corner above 7, or a ninth cut, stops the program with the
    /// standard library's assertion. Always returns true.
    ///
    /// Throws `std::bad_alloc`; `list` then holds the finished objects of the first configurations, possibly none.
    bool wrapLocal(GLTesselation const& tesselation, GLObjectList* list, bool reduce);

  private:
    static float const epsilon;

    /// Replaces the polygons of `object` by one closed triangle fan around the cell centre. Needs at least 3 polygons,
    /// none a fan, and as many vertices on the centre, counted over all of them, as polygons. Refuses too, where one
    /// polygon has several centre vertices, if these take more of the fan's vertices than the polygons reserve: 1 for
    /// each triangle, 2 for each larger polygon. Returns the number of vertices saved, modulo 2^32; 0 where refused,
    /// with `object` unchanged.
    ///
    /// A rim that does not close up is reported on standard error as "ERROR (triangle fan sort)", without a line end,
    /// and kept. `direction` is not used. Throws `std::bad_alloc`.
    unsigned int makeTriangleFan(GLObject* object, GLAccess3f const& direction);
    /// Merges pairs of polygons until none is left that `combinePolygons` would join; returns the number of merges.
    unsigned int reducePolygons(GLObject* object, unsigned int n, bool sameNormal);
    /// Returns a new polygon, owned by the caller, that joins p and q, which share exactly two vertices (a position
    /// that one of them holds twice counts twice); null where they are not to be joined: a fan, a vertex count that is
    /// not `n` (for n other than 0), or, with `sameNormal` set, first normals whose dot product is not exactly 1.
    GLPolygon* combinePolygons(GLPolygon* p, GLPolygon* q, unsigned int n, bool sameNormal);
};
