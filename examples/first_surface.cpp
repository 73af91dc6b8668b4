// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/TAMO.h>

#include <cstdio>
#include <vector>

struct Printer : IPolygonAggregator {
    void fetch(GLObject& object, GLCoord3f const& cell) override {
        std::printf("cell (%g, %g, %g): %u polygons\n", cell.x, cell.y, cell.z, object.size());
    }
    void fetch(GLObject&) override {}
};

int main() {
    std::vector<unsigned char> voxels(4 * 4 * 4); // x runs fastest; 1 is foreground, 0 is background
    voxels[1 + 4 * 1 + 16 * 1] = voxels[2 + 4 * 2 + 16 * 1] = 1;

    GLObjectList list; // the polygons of the 256 cell configurations: build once, scan often
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    Printer printer;
    return wrapGlobal(voxels.data(), {1, 4, 16}, 1, {0, 0, 0}, {4, 4, 4}, list, printer) ? 0 : 1;
}
