// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/CellVolume.h"

#include "support/oracle/DrawnSurface.h"
#include "support/volumes/VoxelComplex.h"

#include <array>
#include <bitset>
#include <vector>

namespace tamo::test {

namespace {

constexpr HalfPoint kMiddle = {1, 1, 1};

// Returns twice the foreground's area on the face of the cell on which coordinate `axis` is `side`, 0 or 2.
int faceFlux(std::vector<HalfEdge> const& outline, unsigned int configuration, std::size_t axis, int side) {
    HalfPoint outward{};
    outward.at(axis) = side - 1;
    int flux = 0;
    // From the face's centre: the outline the other way round, ...
    for (HalfEdge const& edge : outline) {
        if (edge[0].at(axis) == side && edge[1].at(axis) == side) {
            flux -= dot(outward, cross(edge[0] - kMiddle, edge[1] - kMiddle));
        }
    }
    // ... and the foreground's share of the four cell edges, which lie half a voxel off: a foreground corner holds the
    // halves of the two edges that meet in it on the face.
    for (unsigned int corner = 0; corner < 8; ++corner) {
        bool const isOnFace = 2 * cellCorner(corner).at(axis) == side;
        flux += isOnFace && (configuration >> corner & 1U) != 0 ? 2 : 0;
    }
    return flux;
}

} // namespace

std::int64_t drawnVolume48(GLObject const& object, unsigned int configuration) {
    // The flux through the triangles and through what they leave of each face, seen from the cell's centre.
    std::vector<HalfTriangle> const triangles = drawnTriangles(object);
    std::int64_t flux = 0;
    for (HalfTriangle const& t : triangles) {
        flux += dot(t[0] - kMiddle, cross(t[1] - kMiddle, t[2] - kMiddle));
    }
    std::vector<HalfEdge> const outline = outlineOf(triangles);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        flux += faceFlux(outline, configuration, axis, /*side=*/0);
        flux += faceFlux(outline, configuration, axis, /*side=*/2);
    }
    return flux;
}

std::int64_t tetrahedraVolume48(unsigned int config, unsigned int configuration) {
    // Cut at the midpoints, a tetrahedron keeps 0, 1, 4, 7 or 8 eighths of its sixth of the cell.
    constexpr std::array<std::int64_t, 5> kEighths = {0, 1, 4, 7, 8};
    std::int64_t sum = 0;
    for (unsigned int const tetrahedron : cellTetrahedra(config)) {
        sum += kEighths.at(std::bitset<8>(configuration & tetrahedron).count());
    }
    return sum;
}

} // namespace tamo::test
