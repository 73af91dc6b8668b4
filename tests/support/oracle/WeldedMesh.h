// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <vector>

namespace tamo::test {

/// Welds triangles by exact position; positions are given in half voxels, so that all arithmetic is whole.
class WeldedMesh {
  public:
    using Point = std::array<int, 3>;

    void addTriangle(Point const& a, Point const& b, Point const& c);

    [[nodiscard]] std::size_t triangleCount() const { return _triangles.size(); }
    /// Succeeds where every edge is run exactly once in each direction: closed and consistently oriented.
    [[nodiscard]] testing::AssertionResult isClosed() const;
    /// Succeeds where the triangles at every vertex form a single ring. Call for closed meshes.
    [[nodiscard]] testing::AssertionResult isManifold() const;
    /// Returns 48 times the enclosed volume in voxels, positive where the triangles' outer sides look outward.
    [[nodiscard]] long long volume48() const;
    /// Returns vertices - edges + faces of a closed mesh.
    [[nodiscard]] long long eulerCharacteristic() const;

  private:
    unsigned int weld(Point const& point);

    std::map<Point, unsigned int> _vertices;
    std::vector<Point> _points;
    std::vector<std::array<unsigned int, 3>> _triangles;
};

} // namespace tamo::test
