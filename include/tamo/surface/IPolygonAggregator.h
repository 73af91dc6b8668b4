// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/geometry/GLCoord3f.h>
#include <tamo/objects/GLObjectList.h>

/// Receives the surface that a scan produces, cell by cell; derive from it to collect, write or count polygons.
///
/// `wrapGlobal` calls `start`, then `fetch` with an offset once for every cell that has both foreground and background
/// corners, then `finish`; all on the caller's thread. What a receiver throws passes through the scan.
class TAMO_EXPORT IPolygonAggregator {
  public:
    IPolygonAggregator() = default;
    IPolygonAggregator(IPolygonAggregator const&) = default;
    IPolygonAggregator& operator=(IPolygonAggregator const&) = default;
    virtual ~IPolygonAggregator();

    /// Called once before the scan, also before one that is refused; does nothing here.
    virtual void start();
    /// Called once after the scan, also after one that is refused; does nothing here.
    virtual void finish();
    /// Takes the polygons of one cell. Positions in `object` are relative to the cell's lower corner and in voxels (the
    /// edge of a cell is the scan's step); `offset` is that corner in volume coordinates. The object is one of the
    /// list's own, shared by all cells of the same configuration: read it, do not keep it beyond the scan.
    virtual void fetch(GLObject& object, GLCoord3f const& offset) = 0;
    /// Takes the polygons of one object where they stand; the scan itself never calls this one.
    virtual void fetch(GLObject& object) = 0;
};
