// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/TAMO.h>

#include <cstdio>
#include <vector>

// Collects the surface as triangles: three positions each, counter-clockwise as seen from outside.
struct Triangles : IPolygonAggregator {
    void fetch(GLObject& object, GLCoord3f const& cell) override {
        for (GLPolygon const* polygon : object) {
            for (unsigned int i = 2; i < polygon->size(); ++i) {
                // In a strip every second triangle winds the other way; all triangles of other polygons share vertex 0.
                bool const strip = polygon->isStrip();
                add(*polygon, strip ? i - 2 + i % 2 : 0, cell);
                add(*polygon, strip ? i - 1 - i % 2 : i - 1, cell);
                add(*polygon, i, cell);
            }
        }
    }
    void fetch(GLObject&) override {}

    // Vertices are relative to their cell; with the cell's place they are in voxels, whole numbers at voxel centres.
    void add(GLPolygon const& polygon, unsigned int i, GLCoord3f const& cell) {
        GLVec3f const inCell = polygon.vertex(i);
        positions.push_back(inCell + GLVec3f(cell.x, cell.y, cell.z));
    }

    std::vector<GLVec3f> positions;
};

int main() {
    int const side = 50;
    std::vector<unsigned char> voxels; // a ball around (25, 25, 25), and a diagonal through it, which N26 keeps whole
    for (int i = 0; i < side * side * side; ++i) {
        int const x = i % side - 25, y = i / side % side - 25, z = i / side / side - 25;
        voxels.push_back(x * x + y * y + z * z < 400 || (x == y && y == z) ? 1 : 0);
    }

    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N26, list);
    Triangles surface;
    if (!wrapGlobal(voxels.data(), {1, side, side * side}, 1, {0, 0, 0}, {side, side, side}, list, surface)) {
        return 1;
    }
    double volume = 0; // of the cones from the origin to the triangles: what the surface encloses
    for (std::size_t i = 0; i < surface.positions.size(); i += 3) {
        volume += surface.positions[i].dot(surface.positions[i + 1].cross(surface.positions[i + 2])) / 6;
    }
    GLVec3f const first = surface.positions.front();
    std::printf("%zu triangles, the first from (%g, %g, %g)\n", surface.positions.size() / 3, first.x, first.y,
                first.z);
    std::printf("they enclose %.0f voxels\n", volume);
    return 0;
}
