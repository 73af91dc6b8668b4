// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/SurfaceTopology.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <tuple>
#include <vector>

namespace tamo::test {

namespace {

// Groups numbers that are joined two by two.
class Groups {
  public:
    explicit Groups(std::size_t count) : _parents(count) { std::iota(_parents.begin(), _parents.end(), 0U); }

    std::size_t root(std::size_t i) {
        while (_parents[i] != i) {
            i = _parents[i] = _parents[_parents[i]];
        }
        return i;
    }
    void join(std::size_t a, std::size_t b) { _parents[root(a)] = root(b); }

    [[nodiscard]] std::int64_t count() const {
        std::int64_t groups = 0;
        for (std::size_t i = 0; i < _parents.size(); ++i) {
            groups += _parents[i] == i ? 1 : 0;
        }
        return groups;
    }

  private:
    std::vector<std::size_t> _parents;
};

constexpr unsigned int kNoPolygon = ~0U;

// One side of a triangle, its ends as vertex numbers, the lower first.
struct Side {
    std::size_t low;
    std::size_t high;
    // The polygon whose own edge this is, or `kNoPolygon`.
    unsigned int owner;
    bool isUpward;
    std::size_t face;
    // The place of the lower vertex within the face; `highPlace` likewise.
    std::size_t lowPlace;
    std::size_t highPlace;

    [[nodiscard]] auto key() const { return std::tie(low, high, owner); }
};

// Numbers the vertices by position, in the order of their coordinates.
std::vector<std::array<std::size_t, 3>> weld(std::vector<ScannedSurface::Face> const& faces, std::size_t& vertices) {
    std::vector<HalfPoint> points;
    for (auto const& face : faces) {
        points.insert(points.end(), face.corners.begin(), face.corners.end());
    }
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    vertices = points.size();
    std::vector<std::array<std::size_t, 3>> welded;
    for (auto const& face : faces) {
        std::array<std::size_t, 3> numbers{};
        std::transform(face.corners.begin(), face.corners.end(), numbers.begin(), [&](HalfPoint const& point) {
            return static_cast<std::size_t>(std::lower_bound(points.begin(), points.end(), point) - points.begin());
        });
        welded.push_back(numbers);
    }
    return welded;
}

std::vector<Side> sidesOf(std::vector<std::array<std::size_t, 3>> const& triangles) {
    std::vector<Side> sides;
    for (std::size_t face = 0; face < triangles.size(); ++face) {
        for (std::size_t i = 0; i < 3; ++i) {
            std::size_t const j = (i + 1) % 3;
            bool const isUpward = triangles[face][i] < triangles[face][j];
            std::size_t const low = isUpward ? i : j;
            std::size_t const high = isUpward ? j : i;
            sides.push_back({triangles[face][low], triangles[face][high], kNoPolygon, isUpward, face, low, high});
        }
    }
    return sides;
}

// Gives the edges that a polygon has in both directions to that polygon alone.
void claimInnerEdges(std::vector<Side>& sides, std::vector<ScannedSurface::Face> const& faces) {
    auto const ownKey = [&](Side const& side) {
        return std::make_tuple(faces[side.face].polygon, side.low, side.high);
    };
    std::sort(sides.begin(), sides.end(), [&](Side const& a, Side const& b) { return ownKey(a) < ownKey(b); });
    for (std::size_t i = 1; i < sides.size(); ++i) {
        if (ownKey(sides[i - 1]) == ownKey(sides[i])) {
            sides[i - 1].owner = faces[sides[i].face].polygon;
            sides[i].owner = sides[i - 1].owner;
        }
    }
}

} // namespace

SurfaceTopology::SurfaceTopology(ScannedSurface const& surface, bool polygonsApart) {
    std::size_t vertices = 0;
    auto const triangles = weld(surface.faces(), vertices);
    std::vector<Side> sides = sidesOf(triangles);
    if (polygonsApart) {
        claimInnerEdges(sides, surface.faces());
    }
    std::sort(sides.begin(), sides.end(), [](Side const& a, Side const& b) { return a.key() < b.key(); });

    // The corners of triangles around a vertex, joined across the edges, are one group for each ring; the triangles
    // themselves one for each component.
    Groups corners(3 * triangles.size());
    Groups faces(triangles.size());
    std::int64_t edges = 0;
    for (std::size_t i = 0; i < sides.size();) {
        std::size_t end = i + 1;
        while (end < sides.size() && sides[end].key() == sides[i].key()) {
            ++end;
        }
        isClosed = isClosed && end - i == 2 && sides[i].isUpward != sides[i + 1].isUpward;
        for (std::size_t j = i + 1; j < end; ++j) {
            faces.join(sides[i].face, sides[j].face);
            corners.join(3 * sides[i].face + sides[i].lowPlace, 3 * sides[j].face + sides[j].lowPlace);
            corners.join(3 * sides[i].face + sides[i].highPlace, 3 * sides[j].face + sides[j].highPlace);
        }
        ++edges;
        i = end;
    }
    components = faces.count();
    isManifold = isClosed && corners.count() == static_cast<std::int64_t>(vertices);
    euler = static_cast<std::int64_t>(vertices) - edges + static_cast<std::int64_t>(triangles.size());
}

} // namespace tamo::test
