// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CaseHandler.h"

#include <tamo/conn/GLConn.h>

#include <cmath>
#include <iostream>

using tamo::appendOwned;
using tamo::cornerOrZero;
using tamo::firstVertex;
using tamo::isInside;
using tamo::kNoVertex;

// Each of these cases is one triangle fan; they differ in the vertex from which it starts.

unsigned char GLConn::findVertexOfType(GLPolygonDesc const& desc, unsigned int type, unsigned char none) const {
    return firstVertex(desc, none, [&](unsigned char k) { return (getVInfo(desc.conn[k]) & type) != 0; });
}

bool GLConn::handleDefault(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char /*fg*/,
                           unsigned char /*bg*/, bool /*inv*/, bool sdiag) {
    desc.arrange(0, 0, sdiag);
    appendOwned(*obj, desc.createPolygon());
    return true;
}

bool GLConn::handlePixel(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char /*fg*/,
                         unsigned char /*bg*/, bool /*inv*/, bool sdiag) {
    desc.arrange(findVertexOfType(desc, kFaceDiagonalInfo, 0), 0, sdiag);
    appendOwned(*obj, desc.createPolygon());
    return true;
}

bool GLConn::handleCEdge(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char /*fg*/,
                         unsigned char /*bg*/, bool /*inv*/, bool sdiag) {
    desc.fan = true;
    desc.strip = false;
    bool const hasCentre = (vinfo & kSpaceDiagonalInfo) != 0;
    unsigned char const start = hasCentre ? 0 : findVertexOfType(desc, kFaceDiagonalInfo, 0);
    desc.arrange(start, 0, sdiag);
    appendOwned(*obj, desc.createPolygon());
    return true;
}

bool GLConn::handleCFDiag(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char fg,
                          unsigned char /*bg*/, bool /*inv*/, bool sdiag) {
    unsigned int const a = cornerOrZero(fg, 0);
    unsigned int const b = cornerOrZero(fg, a + 1);
    GLVec3f const diagonal = _vertices->vertex(a) - _vertices->vertex(b);
    auto const isAcross = [&](unsigned char k) { return std::fabs(diagonal.dot(desc.normal(k))) < 0.0001F; };
    desc.arrange(firstVertex(desc, 0, isAcross), 0, sdiag);
    appendOwned(*obj, desc.createPolygon());
    return true;
}

bool GLConn::handleC7(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                      bool inv, bool sdiag) {
    if ((vinfo & kSpaceDiagonalInfo) != 0) {
        desc.arrange(0, 0, /*close=*/true);
        appendOwned(*obj, desc.createPolygon());
        return true;
    }
    // The two edges of the three corners meet in the middle one: the fan starts at its point.
    unsigned int const shape = inv ? bg : fg;
    unsigned int const edgeInfo = kEdgeInfo | (inv ? kBackgroundInfo : kForegroundInfo);
    unsigned int last = 0;
    unsigned int secondLast = 0;
    for (unsigned int i = 0; i < getConnSize(); ++i) {
        if (isInside(getConn(i), shape) && (getVInfo(i) & edgeInfo) == edgeInfo) {
            secondLast = last;
            last = i;
        }
    }
    unsigned int const middle = static_cast<unsigned int>(getConn(secondLast)) & getConn(last);
    unsigned int const kind = (vinfo & kFaceDiagonalInfo) != 0 ? kFaceDiagonalInfo : kEdgeInfo;
    auto const isAtMiddle = [&](unsigned char k) {
        return (getConn(desc.conn[k]) & middle) == middle && (getVInfo(desc.conn[k]) & kind) != 0;
    };
    unsigned char const start = firstVertex(desc, kNoVertex, isAtMiddle);
    if (start == kNoVertex) {
        // Only systems that are not made by cases, N14II among them, have such a component.
        std::cerr << "no vertex found" << std::endl;
        return false;
    }
    desc.arrange(start, 0, sdiag);
    appendOwned(*obj, desc.createPolygon());
    return true;
}

bool GLConn::handleC41(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char /*fg*/,
                       unsigned char /*bg*/, bool /*inv*/, bool /*sdiag*/) {
    unsigned char const centre = findVertexOfType(desc, kSpaceDiagonalInfo, kNoVertex);
    if (centre == kNoVertex) {
        std::cerr << "no vertex found" << std::endl;
        return false;
    }
    GLVec3f const axis = desc.normal(centre);
    desc.arrange(centre, 0, /*close=*/true, axis);
    appendOwned(*obj, desc.createPolygon());
    return true;
}
