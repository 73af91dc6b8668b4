// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/conn/GLConn.h>
#include <tamo/connectivity/GLConnectivity.h>
#include <tamo/connectivity/GLTesselation.h>
#include <tamo/surface/TAMO.h>

namespace {

// The cell as six tetrahedra of equal volume; all but the first and the last share the diagonal 0-7.
GLTesselation makeSixTetrahedra() {
    GLPolyh const tetrahedra[] = {{0, 1, 3, 5}, {0, 2, 3, 7}, {0, 2, 4, 7}, {0, 3, 5, 7}, {0, 4, 5, 7}, {2, 4, 6, 7}};
    GLTesselation tesselation(0);
    tesselation.resize(6);
    for (unsigned int i = 0; i < 6; ++i) {
        tesselation.setPolyh(i, tetrahedra[i]);
    }
    return tesselation;
}

} // namespace

void GLObjectListForNeighborhood(Neighborhood::NHConfig config, GLObjectList& list) {
    switch (config) {
    case Neighborhood::N6:
    case Neighborhood::N26:
    case Neighborhood::N14I:
        // The system comes in through wrapLocal alone; what the builder is constructed with does not matter.
        GLConn(Neighborhood::N6).wrapLocal(config, &list, true);
        break;
    default:
        GLConnectivity().wrapLocal(makeSixTetrahedra(), &list, false);
    }
}
