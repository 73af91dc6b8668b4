// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CaseHandler.h"

#include <tamo/conn/GLConn.h>

#include <array>
#include <cmath>
#include <iostream>

using tamo::appendPolygon;
using tamo::firstVertex;
using tamo::isInside;
using tamo::kNoVertex;

// The two largest cases: a fan from the wrong vertex folds over or runs into a face of the cell, and around a diagonal
// that the shape itself contains no single fan exists. docs/cases.md draws the shapes.

namespace {

bool isParallel(GLVec3f const& a, GLVec3f const& b) { return std::fabs(a.dot(b)) > 0.9999F; }

// The two sides of a polygon that a plane splits, each a fan of its own.
struct Halves {
    explicit Halves(GLPolygonDesc const& whole)
        : above(*whole.points, whole.connCount), below(*whole.points, whole.connCount) {
        above.fan = true;
        below.fan = true;
    }

    GLPolygonDesc above;
    GLPolygonDesc below;
};

} // namespace

// The shape is a bent path u - v - w: u-v is an edge, v-w a face diagonal, u-w a space diagonal. It is symmetric to the
// plane of its corners.
bool GLConn::handleC25(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                       bool inv, bool /*sdiag*/) {
    if ((vinfo & kSpaceDiagonalInfo) != 0) {
        desc.arrange(0, 0, /*close=*/true);
        appendPolygon(*obj, desc);
        return true;
    }
    unsigned int const shape = inv ? bg : fg;
    // Such a shape has one link of each type.
    auto const linkOfType = [&](unsigned int type) {
        unsigned int link = 0;
        for (unsigned int i = 0; i < getConnSize(); ++i) {
            link = isInside(getConn(i), shape) && (getVInfo(i) & type) != 0 ? i : link;
        }
        return link;
    };
    unsigned int const edge = linkOfType(kEdgeInfo);
    unsigned int const faceDiagonal = linkOfType(kFaceDiagonalInfo);
    unsigned int const spaceDiagonal = linkOfType(kSpaceDiagonalInfo);
    GLVec3f const along = getNormal(edge, true);
    GLVec3f const across = along.normalizedCross(getNormal(faceDiagonal, true));
    unsigned int const u = static_cast<unsigned int>(getConn(edge)) & getConn(spaceDiagonal);
    unsigned int const w = static_cast<unsigned int>(getConn(faceDiagonal)) & getConn(spaceDiagonal);
    bool const isTube = (getVInfo(spaceDiagonal) & kBothInfo) == kBothInfo;

    // Without the space diagonal the seven vertices wind so far around u that all triangles must meet opposite to it:
    // in the vertex at w that looks along the edge. The two vertices at u are then on different sides of the plane; one
    // of them joins the other's side too, so that the two polygons share the edge to it.
    Halves halves(desc);
    for (unsigned char k = 0; k < desc.count; ++k) {
        float const side = across.dot(desc.normal(k));
        bool const isAtU = (getConn(desc.conn[k]) & u) != 0;
        if (side >= -_epsilon || (!isTube && isAtU)) {
            halves.above.addVertex(desc.conn[k], desc.normal(k));
        }
        if (side <= _epsilon) {
            halves.below.addVertex(desc.conn[k], desc.normal(k));
        }
    }
    // With the space diagonal the vertices run around it in a ring, and each half of the ring opens like a fan from its
    // one face diagonal at w.
    auto const findStart = [&](GLPolygonDesc const& half) {
        return firstVertex(half, kNoVertex, [&](unsigned char k) {
            bool const isFaceDiagonal = (getVInfo(half.conn[k]) & kFaceDiagonalInfo) != 0;
            return isTube ? isFaceDiagonal && (getConn(half.conn[k]) & w) != 0 : isParallel(half.normal(k), along);
        });
    };
    unsigned char const startAbove = findStart(halves.above);
    unsigned char const startBelow = findStart(halves.below);
    if (startAbove == kNoVertex || startBelow == kNoVertex) {
        std::cerr << "normal not found" << std::endl;
        return false;
    }
    halves.above.arrange(startAbove, 0, /*close=*/false);
    halves.below.arrange(startBelow, 0, /*close=*/false);
    appendPolygon(*obj, halves.above);
    appendPolygon(*obj, halves.below);
    return true;
}

// The shape is a path of three edges, each at right angles to the others.
bool GLConn::handleC27(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                       bool inv, bool sdiag) {
    if ((vinfo & kSpaceDiagonalInfo) != 0) {
        desc.arrange(0, 0, /*close=*/true);
        appendPolygon(*obj, desc);
        return true;
    }
    unsigned int const shape = inv ? bg : fg;
    auto const hasAll = [this](unsigned int link, unsigned int info) { return (getVInfo(link) & info) == info; };
    unsigned int centreLink = getConnSize();
    std::array<unsigned int, 3> path{};
    for (unsigned int i = 0; i < getConnSize(); ++i) {
        if (!isInside(getConn(i), shape)) {
            continue;
        }
        if (hasAll(i, kSpaceDiagonalInfo | kBothInfo)) {
            centreLink = i;
        }
        if (hasAll(i, kEdgeInfo | kBothInfo)) {
            path = {i, path[0], path[1]};
        }
    }
    if (centreLink != getConnSize()) {
        splitAtCentreLink(*obj, desc, centreLink, shape);
        return true;
    }
    if ((vinfo & kFaceDiagonalInfo) != 0) {
        desc.arrange(findVertexOfType(desc, kFaceDiagonalInfo, 0), 0, /*close=*/false);
        appendPolygon(*obj, desc);
        return true;
    }
    unsigned char const start = findPathStart(desc, path);
    if (start == kNoVertex) {
        std::cerr << "no vertex found" << std::endl;
        return false;
    }
    desc.arrange(start, 0, sdiag);
    appendPolygon(*obj, desc);
    return true;
}

// Splits a ring of vertices around the centre link along the link, and makes a polygon of each half.
void GLConn::splitAtCentreLink(GLObject& object, GLPolygonDesc const& desc, unsigned int centreLink,
                               unsigned int shape) {
    unsigned int const end = 1U << getP0ofConn(centreLink);
    unsigned int last = 0;
    unsigned int secondLast = 0;
    for (unsigned int i = 0; i < getConnSize(); ++i) {
        if ((getVInfo(i) & (kEdgeInfo | kBothInfo)) == (kEdgeInfo | kBothInfo) && (getConn(i) & end) != 0 &&
            !isInside(getConn(i), shape)) {
            secondLast = last;
            last = i;
        }
    }
    GLVec3f outward = getNormal(secondLast, true) + getNormal(last, true);
    outward.normalize();
    GLVec3f const across = outward.normalizedCross(getNormal(centreLink, true));

    Halves halves(desc);
    unsigned char loose = kNoVertex;
    unsigned char sharedAbove = kNoVertex;
    unsigned char sharedBelow = kNoVertex;
    for (unsigned char k = 0; k < desc.count; ++k) {
        unsigned char const link = desc.conn[k];
        float const side = across.dot(desc.normal(k));
        bool const isInPlane = side <= _epsilon && side >= -_epsilon;
        if (isInPlane && (getConn(link) & getConn(centreLink)) == 0) {
            loose = k;
            continue;
        }
        if (isInPlane && (getVInfo(link) & kFaceDiagonalInfo) != 0) {
            sharedAbove = halves.above.count;
            sharedBelow = halves.below.count;
        }
        if (isInPlane || side > 0.0F) {
            halves.above.addVertex(link, desc.normal(k));
        }
        if (isInPlane || side < 0.0F) {
            halves.below.addVertex(link, desc.normal(k));
        }
    }
    if (sharedAbove == kNoVertex) {
        return;
    }
    if (loose != kNoVertex) {
        bool const goesAbove = halves.above.count <= halves.below.count;
        GLPolygonDesc& smaller = goesAbove ? halves.above : halves.below;
        GLPolygonDesc& larger = goesAbove ? halves.below : halves.above;
        smaller.addVertex(desc.conn[loose], desc.normal(loose));
        smaller.arrange(0, 0, /*close=*/false);
        larger.arrange(goesAbove ? sharedBelow : sharedAbove, 0, /*close=*/false);
    }
    appendPolygon(object, halves.above);
    appendPolygon(object, halves.below);
}

// Returns the first vertex, at an end edge of the path, whose normal is at right angles to that edge and the middle
// one; `kNoVertex` where there is none. A fan from a vertex that looks along the middle edge would fold over.
unsigned char GLConn::findPathStart(GLPolygonDesc const& desc, std::array<unsigned int, 3> const& path) const {
    auto const touches = [this](unsigned int a, unsigned int b) { return (getConn(a) & getConn(b)) != 0; };
    unsigned int middle = 0;
    while (middle < 2 &&
           !(touches(path[middle], path[(middle + 1) % 3]) && touches(path[middle], path[(middle + 2) % 3]))) {
        ++middle;
    }
    auto const isAcross = [&](unsigned char k, unsigned int end) {
        GLVec3f const direction = getNormal(path[middle], true).cross(getNormal(path[end], true));
        return touches(desc.conn[k], path[end]) && isParallel(desc.normal(k), direction);
    };
    return firstVertex(desc, kNoVertex, [&](unsigned char k) {
        bool const isOnEdge = (getVInfo(desc.conn[k]) & kEdgeInfo) != 0;
        return isOnEdge && (isAcross(k, (middle + 1) % 3) || isAcross(k, (middle + 2) % 3));
    });
}
