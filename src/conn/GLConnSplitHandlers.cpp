// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CaseHandler.h"

#include <tamo/conn/GLConn.h>

#include <array>
#include <cmath>
#include <iostream>

using tamo::appendArranged;
using tamo::appendOwned;
using tamo::findVertexOfType;
using tamo::firstVertex;
using tamo::hasInfo;
using tamo::isInside;
using tamo::kNoVertex;
using tamo::lastLinks;

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

// Splits the vertices by the side of a plane that their normals point to. A normal within the plane, or nearly, puts
// its vertex on both sides, and so does `joinsAbove(vertex)` where the normal points below.
template <typename JoinsAbove>
Halves split(GLPolygonDesc const& desc, GLVec3f const& planeNormal, float tolerance, JoinsAbove const& joinsAbove) {
    Halves halves(desc);
    for (unsigned char k = 0; k < desc.count; ++k) {
        float const side = planeNormal.dot(desc.normal(k));
        if (side >= -tolerance || joinsAbove(k)) {
            halves.above.addVertex(desc.conn[k], desc.normal(k));
        }
        if (side <= tolerance) {
            halves.below.addVertex(desc.conn[k], desc.normal(k));
        }
    }
    return halves;
}

// Appends the polygons of both halves, each a fan from its first vertex that `isStart(half, vertex)` takes.
template <typename IsStart> bool appendHalves(GLObject& object, Halves& halves, IsStart const& isStart) {
    auto const findStart = [&](GLPolygonDesc const& half) {
        return firstVertex(half, kNoVertex, [&](unsigned char k) { return isStart(half, k); });
    };
    unsigned char const startAbove = findStart(halves.above);
    unsigned char const startBelow = findStart(halves.below);
    if (startAbove == kNoVertex || startBelow == kNoVertex) {
        std::cerr << "normal not found" << std::endl;
        return false;
    }
    appendArranged(object, halves.above, startAbove, /*close=*/false);
    appendArranged(object, halves.below, startBelow, /*close=*/false);
    return true;
}

// A bent path u - v - w: u-v is an edge, v-w a face diagonal, u-w a space diagonal. It is symmetric to the plane of its
// corners. Corners are sets of one.
struct BentPath {
    GLVec3f edgeDirection;
    GLVec3f planeNormal;
    unsigned int u;
    unsigned int w;
};

// Makes the polygons around a bent path whose space diagonal is a link of both adjacencies: the vertices run around the
// diagonal in a ring, and each half of the ring opens like a fan from its one face diagonal at w.
bool splitTube(GLObject& object, NhProp const& links, GLPolygonDesc const& desc, BentPath const& path,
               float tolerance) {
    Halves halves = split(desc, path.planeNormal, tolerance, [](unsigned char) { return false; });
    return appendHalves(object, halves, [&](GLPolygonDesc const& half, unsigned char k) {
        bool const isFaceDiagonal = (links.getVInfo(half.conn[k]) & NhProp::kFaceDiagonalInfo) != 0;
        return isFaceDiagonal && (links.getConn(half.conn[k]) & path.w) != 0;
    });
}

// Makes the polygons around a bent path whose space diagonal belongs to one adjacency alone: the seven vertices wind so
// far around u that all triangles must meet opposite to it, in the vertex at w that looks along the edge. The two
// vertices at u are then on different sides of the plane; one of them joins the other's side too, so that the two
// polygons share the edge to it.
bool splitAroundCorner(GLObject& object, NhProp const& links, GLPolygonDesc const& desc, BentPath const& path,
                       float tolerance) {
    auto const isAtU = [&](unsigned char k) { return (links.getConn(desc.conn[k]) & path.u) != 0; };
    Halves halves = split(desc, path.planeNormal, tolerance, isAtU);
    return appendHalves(object, halves, [&](GLPolygonDesc const& half, unsigned char k) {
        return isParallel(half.normal(k), path.edgeDirection);
    });
}

// Returns the normal of the plane that splits a path of three edges: it runs along the path's centre link, between the
// two edges that leave the link's lower corner and the path.
GLVec3f planeAlongCentreLink(NhProp const& links, unsigned int centreLink, unsigned int shape) {
    unsigned int const end = 1U << links.getP0ofConn(centreLink);
    auto const [last, secondLast] = lastLinks<2>(links, /*none=*/0, [&](unsigned int link) {
        return hasInfo(links, link, NhProp::kEdgeInfo | NhProp::kBothInfo) && (links.getConn(link) & end) != 0 &&
               !isInside(links.getConn(link), shape);
    });
    GLVec3f outward = links.getNormal(secondLast, true) + links.getNormal(last, true);
    outward.normalize();
    return outward.normalizedCross(links.getNormal(centreLink, true));
}

// Splits a ring of vertices around the centre link along the link, and makes a polygon of each half. A vertex within
// the plane belongs to both, except the loose one, which is not at the link: it goes to the smaller half.
void splitAtCentreLink(GLObject& object, NhProp const& links, GLPolygonDesc const& desc, unsigned int centreLink,
                       GLVec3f const& planeNormal, float tolerance) {
    Halves halves(desc);
    unsigned char loose = kNoVertex;
    unsigned char sharedAbove = kNoVertex;
    unsigned char sharedBelow = kNoVertex;
    for (unsigned char k = 0; k < desc.count; ++k) {
        unsigned char const link = desc.conn[k];
        float const side = planeNormal.dot(desc.normal(k));
        bool const isInPlane = side <= tolerance && side >= -tolerance;
        if (isInPlane && (links.getConn(link) & links.getConn(centreLink)) == 0) {
            loose = k;
            continue;
        }
        if (isInPlane && (links.getVInfo(link) & NhProp::kFaceDiagonalInfo) != 0) {
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
    appendOwned(object, halves.above.createPolygon());
    appendOwned(object, halves.below.createPolygon());
}

// Returns the first vertex, at an end edge of the path, whose normal is at right angles to that edge and the middle
// one; `kNoVertex` where there is none. A fan from a vertex that looks along the middle edge would fold over.
unsigned char findPathStart(NhProp const& links, GLPolygonDesc const& desc, std::array<unsigned int, 3> const& path) {
    auto const touches = [&links](unsigned int a, unsigned int b) {
        return (links.getConn(a) & links.getConn(b)) != 0;
    };
    unsigned int middle = 0;
    while (middle < 2 &&
           !(touches(path[middle], path[(middle + 1) % 3]) && touches(path[middle], path[(middle + 2) % 3]))) {
        ++middle;
    }
    auto const isAcross = [&](unsigned char k, unsigned int end) {
        GLVec3f const direction = links.getNormal(path[middle], true).cross(links.getNormal(path[end], true));
        return touches(desc.conn[k], path[end]) && isParallel(desc.normal(k), direction);
    };
    return firstVertex(desc, kNoVertex, [&](unsigned char k) {
        bool const isOnEdge = (links.getVInfo(desc.conn[k]) & NhProp::kEdgeInfo) != 0;
        return isOnEdge && (isAcross(k, (middle + 1) % 3) || isAcross(k, (middle + 2) % 3));
    });
}

} // namespace

bool GLConn::handleC25(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                       bool inv, bool /*sdiag*/) {
    if ((vinfo & kSpaceDiagonalInfo) != 0) {
        appendArranged(*obj, desc, 0, /*close=*/true);
        return true;
    }
    unsigned int const shape = inv ? bg : fg;
    // Such a shape has one link of each type.
    auto const linkOfType = [&](unsigned int type) {
        return lastLinks<1>(*this, /*none=*/0, [&](unsigned int link) {
            return isInside(getConn(link), shape) && hasInfo(*this, link, type);
        })[0];
    };
    unsigned int const edge = linkOfType(kEdgeInfo);
    unsigned int const faceDiagonal = linkOfType(kFaceDiagonalInfo);
    unsigned int const spaceDiagonal = linkOfType(kSpaceDiagonalInfo);
    BentPath path{};
    path.edgeDirection = getNormal(edge, true);
    path.planeNormal = path.edgeDirection.normalizedCross(getNormal(faceDiagonal, true));
    path.u = static_cast<unsigned int>(getConn(edge)) & getConn(spaceDiagonal);
    path.w = static_cast<unsigned int>(getConn(faceDiagonal)) & getConn(spaceDiagonal);
    return hasInfo(*this, spaceDiagonal, kBothInfo) ? splitTube(*obj, *this, desc, path, _epsilon)
                                                    : splitAroundCorner(*obj, *this, desc, path, _epsilon);
}

// The shape is a path of three edges, each at right angles to the others.
bool GLConn::handleC27(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                       bool inv, bool sdiag) {
    if ((vinfo & kSpaceDiagonalInfo) != 0) {
        appendArranged(*obj, desc, 0, /*close=*/true);
        return true;
    }
    unsigned int const shape = inv ? bg : fg;
    auto const isInsideWith = [&](unsigned int info) {
        return [this, shape, info](unsigned int link) {
            return isInside(getConn(link), shape) && hasInfo(*this, link, info);
        };
    };
    unsigned int const noLink = getConnSize();
    unsigned int const centreLink = lastLinks<1>(*this, noLink, isInsideWith(kSpaceDiagonalInfo | kBothInfo))[0];
    if (centreLink != noLink) {
        splitAtCentreLink(*obj, *this, desc, centreLink, planeAlongCentreLink(*this, centreLink, shape), _epsilon);
        return true;
    }
    if ((vinfo & kFaceDiagonalInfo) != 0) {
        appendArranged(*obj, desc, findVertexOfType(*this, desc, kFaceDiagonalInfo, 0), /*close=*/false);
        return true;
    }
    auto const path = lastLinks<3>(*this, /*none=*/0, isInsideWith(kEdgeInfo | kBothInfo));
    unsigned char const start = findPathStart(*this, desc, path);
    if (start == kNoVertex) {
        std::cerr << "no vertex found" << std::endl;
        return false;
    }
    appendArranged(*obj, desc, start, sdiag);
    return true;
}
