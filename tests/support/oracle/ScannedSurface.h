// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/DrawnSurface.h"
#include "support/volumes/VoxelSet.h"

#include <tamo/surface/IPolygonAggregator.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace tamo::test {

/// Collects the triangles that a scan of a volume hands over.
class ScannedSurface : public IPolygonAggregator {
  public:
    /// Scans the box of the set with step 1.
    ScannedSurface(VoxelSet const& set, GLObjectList const& list);

    void start() override {}
    void finish() override {}
    void fetch(GLObject& object, GLCoord3f const& offset) override;
    void fetch(GLObject& object) override;

    /// One drawn triangle and the number of its polygon.
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

} // namespace tamo::test
