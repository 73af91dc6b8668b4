// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/ScannedSurface.h"

#include <cstdint>

namespace tamo::test {

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
