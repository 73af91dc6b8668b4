// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/GLPolygonConsumer.h>
#include <tamo/surface/TAMO.h>

// The surface of one voxel under N14II has 24 triangles: that many of the tetrahedra around it touch it.
int main(int argc, char**) {
    unsigned char const voxel = 1;
    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    GLDataInfo info;
    bool const counted = getGLDataInfo(&voxel, {1, 1, 1}, 1, {0, 0, 0}, {1, 1, 1}, list, info);
    if (argc > 1) { // Linked but not run, as there is no OpenGL context: a static library needs libGL for it.
        GLPolygonConsumer consumer;
        wrapGlobal(&voxel, {1, 1, 1}, 1, {0, 0, 0}, {1, 1, 1}, list, consumer);
    }
    return counted && info.triangles() == 24 ? 0 : 1;
}
