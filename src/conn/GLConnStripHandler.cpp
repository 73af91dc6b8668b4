// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CaseHandler.h"

#include <tamo/conn/GLConn.h>

namespace {

void repeatVertex(GLPolygonDesc& desc, unsigned int k) {
    GLVec3f const normal = desc.normal(k);
    desc.addVertex(desc.conn[k], normal);
}

} // namespace

// Two corners on a space diagonal are connected through the cell's centre alone: the surface is a tube around the
// diagonal, cut open into one strip that ends where it begins.
bool GLConn::handleCSDiag(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char fg,
                          unsigned char /*bg*/, bool inv, bool /*sdiag*/) {
    unsigned int const ends = inv ? tamo::kFullCell - fg : fg;
    unsigned int const a = tamo::cornerOrZero(ends, 0);
    unsigned int const b = tamo::cornerOrZero(ends, a + 1);
    GLVec3f const upward = _vertices->vertex(b) - _vertices->vertex(a);
    GLVec3f const downward = _vertices->vertex(a) - _vertices->vertex(b);

    if (desc.count == 6) {
        desc.arrange(0, 0, /*close=*/false, inv ? upward : downward);
        repeatVertex(desc, 0);
        repeatVertex(desc, 1);
        desc.strip = true;
        desc.fan = false;
        desc.ccw = true;
        tamo::appendOwned(*obj, desc.createPolygon());
        return true;
    }

    desc.strip = true;
    desc.fan = false;
    desc.arrange(0, 0, /*close=*/false, upward);
    if (static_cast<double>(upward.dot(desc.position(0) - desc.position(1))) < 0.9999990000000025) {
        repeatVertex(desc, 0);
        // Removes link 0, the first edge, wherever it stands in the ring.
        desc.removeVertex(0);
    }
    repeatVertex(desc, 0);
    repeatVertex(desc, 1);
    for (unsigned int k = 0; k < desc.count; k += 2) {
        if (upward.dot(desc.normal(k)) > 0.0F) {
            desc.swapVertices(static_cast<unsigned char>(k), static_cast<unsigned char>(k + 1));
        }
    }
    desc.ccw = true;
    tamo::appendOwned(*obj, desc.createPolygon());
    return true;
}
