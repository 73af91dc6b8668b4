// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/DrawnSurface.h"
#include "support/volumes/PlainVolume.h"

#include <tamo/surface/IPolygonAggregator.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace tamo::test {

/// Collects the triangles that a scan of a volume hands over.
class ScannedSurface : public IPolygonAggregator {
  public:
    /// Scans the whole volume, from (0, 0, 0) to `size - 1`, with step 1.
    ScannedSurface(PlainVolume const& volume, Triple const& size, GLObjectList const& list);

    void start() override {}
    void finish() override {}
    void fetch(GLObject& object, GLCoord3f const& offset) override;
    void fetch(GLObject& object) override;

    /// One drawn triangle and the number of the polygon it belongs to.
    struct Face {
        HalfTriangle corners;
        unsigned int polygon;
    };
    [[nodiscard]] std::vector<Face> const& faces() const { return _faces; }

    /// Returns 48 times the enclosed volume, in voxels.
    [[nodiscard]] std::int64_t volume48() const;
    /// Returns the area in squared voxel sides.
    [[nodiscard]] double area() const;
    /// Returns how often the surface winds around a point, from the solid angles of its triangles.
    [[nodiscard]] double windingNumber(HalfPoint const& point) const;

  private:
    std::vector<Face> _faces;
    unsigned int _polygons = 0;
};

/// What is left of a surface when positions, lengths and angles are forgotten.
struct SurfaceTopology {
    /// Takes edges at the same place for one edge. With `polygonsApart`, an edge between two triangles of one polygon
    /// is that polygon's own, whatever else lies at its place.
    SurfaceTopology(ScannedSurface const& surface, bool polygonsApart);

    /// Whether every edge has exactly two triangles, which run along it in opposite directions.
    bool isClosed = true;
    /// Whether the triangles at every vertex form one ring.
    bool isManifold = true;
    std::int64_t euler = 0;
    std::int64_t components = 0;
};

} // namespace tamo::test
