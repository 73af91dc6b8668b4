// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/TAMO.h>

// The surface of one voxel under N14II has 24 triangles: that many of the tetrahedra around it touch it.
int main() {
    unsigned char const voxel = 1;
    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    GLDataInfo info;
    bool const counted = getGLDataInfo(&voxel, {1, 1, 1}, 1, {0, 0, 0}, {1, 1, 1}, list, info);
    return counted && info.triangles() == 24 ? 0 : 1;
}
