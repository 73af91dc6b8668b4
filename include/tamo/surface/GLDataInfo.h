// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/geometry/GLtVec3.h>

#include <cstddef>

/// Describes what a scan covers and how much surface it would produce. Never throws.
class TAMO_EXPORT GLDataInfo {
  public:
    /// Makes a record of zeros.
    GLDataInfo();
    GLDataInfo(GLtVec3<int> const& offset, GLtVec3<int> const& size, unsigned int step, unsigned int triangles,
               unsigned int vertices, unsigned int primitives);

    /// Returns the volume coordinates of the box's first voxel.
    [[nodiscard]] GLtVec3<int>& offset();
    [[nodiscard]] GLtVec3<int> const& offset() const;
    /// Returns the box's extent in voxels.
    [[nodiscard]] GLtVec3<int>& size();
    [[nodiscard]] GLtVec3<int> const& size() const;
    /// Returns the sampling step in voxels.
    [[nodiscard]] unsigned int& step();
    [[nodiscard]] unsigned int step() const;
    /// Returns the number of triangles: n - 2 for a polygon of n vertices.
    [[nodiscard]] std::size_t& triangles();
    [[nodiscard]] std::size_t triangles() const;
    /// Returns the number of vertices of all polygons, each drawn on its own.
    [[nodiscard]] std::size_t& vertices();
    [[nodiscard]] std::size_t vertices() const;
    /// Returns the number of polygons: one drawing primitive each.
    [[nodiscard]] std::size_t& primitives();
    [[nodiscard]] std::size_t primitives() const;

    /// Sets every field to 0.
    void reset();

  private:
    GLtVec3<int> _offset;
    GLtVec3<int> _size;
    unsigned int _step = 0;
    std::size_t _triangles = 0;
    std::size_t _vertices = 0;
    std::size_t _primitives = 0;
};
