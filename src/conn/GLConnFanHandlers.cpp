// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CaseHandler.h"

#include <tamo/conn/GLConn.h>

#include <cmath>
#include <iostream>

using tamo::appendArranged;
using tamo::appendOwned;
using tamo::cornerOrZero;
using tamo::findVertexOfType;
using tamo::firstVertex;
using tamo::hasInfo;
using tamo::isInside;
using tamo::kNoVertex;
using tamo::lastLinks;

// Each of these cases is one triangle fan; they differ in the vertex from which it starts.

bool GLConn::handleDefault(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char /*fg*/,
                           unsigned char /*bg*/, bool /*inv*/, bool sdiag) {
    appendArranged(*obj, desc, 0, sdiag);
    return true;
}

bool GLConn::handlePixel(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char /*fg*/,
                         unsigned char /*bg*/, bool /*inv*/, bool sdiag) {
    appendArranged(*obj, desc, findVertexOfType(*this, desc, kFaceDiagonalInfo, 0), sdiag);
    return true;
}

bool GLConn::handleCEdge(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char /*fg*/,
                         unsigned char /*bg*/, bool /*inv*/, bool sdiag) {
    desc.fan = true;
    desc.strip = false;
    bool const hasCentre = (vinfo & kSpaceDiagonalInfo) != 0;
    unsigned char const start = hasCentre ? 0 : findVertexOfType(*this, desc, kFaceDiagonalInfo, 0);
    appendArranged(*obj, desc, start, sdiag);
    return true;
}

bool GLConn::handleCFDiag(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char fg,
                          unsigned char /*bg*/, bool /*inv*/, bool sdiag) {
    unsigned int const a = cornerOrZero(fg, 0);
    unsigned int const b = cornerOrZero(fg, a + 1);
    GLVec3f const diagonal = _vertices->vertex(a) - _vertices->vertex(b);
    auto const isAcross = [&](unsigned char k) { return std::fabs(diagonal.dot(desc.normal(k))) < 0.0001F; };
    appendArranged(*obj, desc, firstVertex(desc, 0, isAcross), sdiag);
    return true;
}

bool GLConn::handleC7(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                      bool inv, bool sdiag) {
    if ((vinfo & kSpaceDiagonalInfo) != 0) {
        appendArranged(*obj, desc, 0, /*close=*/true);
        return true;
    }
    // The two edges of the three corners meet in the middle one: the fan starts at its point.
    unsigned int const shape = inv ? bg : fg;
    unsigned int const edgeInfo = kEdgeInfo | (inv ? kBackgroundInfo : kForegroundInfo);
    auto const [last, secondLast] = lastLinks<2>(*this, /*none=*/0, [&](unsigned int link) {
        return isInside(getConn(link), shape) && hasInfo(*this, link, edgeInfo);
    });
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
    appendArranged(*obj, desc, start, sdiag);
    return true;
}

bool GLConn::handleC41(GLObject* obj, GLPolygonDesc& desc, unsigned int /*vinfo*/, unsigned char /*fg*/,
                       unsigned char /*bg*/, bool /*inv*/, bool /*sdiag*/) {
    unsigned char const centre = findVertexOfType(*this, desc, kSpaceDiagonalInfo, kNoVertex);
    if (centre == kNoVertex) {
        std::cerr << "no vertex found" << std::endl;
        return false;
    }
    GLVec3f const axis = desc.normal(centre);
    desc.arrange(centre, 0, /*close=*/true, axis);
    appendOwned(*obj, desc.createPolygon());
    return true;
}
