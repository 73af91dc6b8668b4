// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/conn/GLPolygonDesc.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <utility>

namespace {

constexpr unsigned char kMaxVertices = 26;
constexpr unsigned int kMaxCount = std::numeric_limits<unsigned char>::max();
constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr GLVec3f kCellCentre(0.5F, 0.5F, 0.5F);

// Measures the counter-clockwise turn, about an axis through the centroid, from a reference vertex to another.
class Turn {
  public:
    Turn(GLVec3f const& axis, GLVec3f const& centre, GLVec3f const& reference)
        : _axis(axis), _centre(centre), _axisSquared(axis.dot(axis)), _reference(inwardOffset(reference)),
          _referenceLength(_reference.length()) {}

    // Returns the angle to `position`. In the reference's own direction it is a full turn, not none.
    [[nodiscard]] double to(GLVec3f const& position) const {
        GLVec3f const offset = inwardOffset(position);
        // Near -1 the cosine is too coarse to tell the two sides apart: the opposite vertex is recognised by its place.
        GLVec3f const gap = _reference * -1.0F - offset;
        if (static_cast<double>(gap.dot(gap)) < 0.0001) {
            return kPi;
        }
        float cosine = _reference.dot(offset) / (offset.length() * _referenceLength);
        if (cosine < -1.0F) {
            cosine = -1.0F;
        } else if (cosine > 1.0F) {
            cosine = 1.0F;
        }
        double const angle = std::acos(cosine);
        return offset.cross(_reference).dot(_axis) >= 0.0F ? kTwoPi - angle : angle;
    }

  private:
    // Returns the way from `position`, projected along the axis, to the centroid.
    [[nodiscard]] GLVec3f inwardOffset(GLVec3f const& position) const {
        float const t = (position - _centre).dot(_axis) / _axisSquared;
        return _axis * t + _centre - position;
    }

    GLVec3f _axis;
    GLVec3f _centre;
    float _axisSquared;
    GLVec3f _reference;
    float _referenceLength;
};

[[noreturn]] void stop(char const* message) {
    std::cerr << message << std::endl;
    std::abort();
}

// Makes room for `places` vertices. There is a place for each link; more are needed where a link was removed or stands
// twice.
void ensurePlaces(GLPolygonDesc& desc, unsigned int places) {
    if (desc.conn.size() < places) {
        desc.conn.resize(places);
    }
    if (desc.normalIndex.size() < places) {
        desc.normalIndex.resize(places);
    }
}

// Repeats vertex 1 at the end, whether or not there is one.
void repeatFirstOfRim(GLPolygonDesc& desc) {
    if (desc.count == kMaxCount) {
        stop("GLPolygonDesc::arrange too many vertices");
    }
    ensurePlaces(desc, std::max(desc.count + 1U, 2U));
    desc.conn[desc.count] = desc.conn[1];
    desc.normalIndex[desc.count] = desc.normalIndex[1];
    ++desc.count;
}

// Swaps a vertex on the centroid or the cell centre to the front and returns where it stood; sets `hasCentre`. Where
// `axis` is zero, that vertex's normal takes its place.
unsigned char moveCentreToFront(GLPolygonDesc& desc, GLVec3f& axis) {
    desc.hasCentre = false;
    for (unsigned char k = 0; k < desc.count; ++k) {
        if (desc.position(k) != desc.centre && desc.position(k) != kCellCentre) {
            continue;
        }
        desc.hasCentre = true;
        if (axis == GLVec3f()) {
            axis = desc.normal(k);
        }
        if (k != 0) {
            desc.swapVertices(0, k);
        }
        return k;
    }
    return 0;
}

void sortByAngle(GLPolygonDesc& desc, unsigned int start, GLVec3f const& axis) {
    if (start >= desc.count) {
        return;
    }
    Turn const turn(axis, desc.centre, desc.position(start));
    std::array<double, kMaxCount> angles;
    for (unsigned int j = start + 1; j < desc.count; ++j) {
        angles[j] = turn.to(desc.position(j));
    }
    for (unsigned int a = start + 1; a + 1 < desc.count; ++a) {
        for (unsigned int b = a + 1; b < desc.count; ++b) {
            if (angles[a] > angles[b]) {
                // The larger angle is rounded to single precision as it moves: it decides the order of near-equal
                // angles, and with it the triangles of a fan.
                auto const moved = static_cast<float>(angles[a]);
                angles[a] = angles[b];
                angles[b] = static_cast<double>(moved);
                desc.swapVertices(static_cast<unsigned char>(a), static_cast<unsigned char>(b));
            }
        }
    }
}

} // namespace

GLPolygonDesc::GLPolygonDesc(std::vector<GLVec3f> const& pointTable, unsigned char linkCount)
    : connCount(linkCount), conn(linkCount), normalIndex(linkCount), normals(), points(&pointTable) {}

bool GLPolygonDesc::addVertex(unsigned char link, GLVec3f const& normal) {
    if (count >= kMaxVertices || link >= connCount) {
        return false;
    }
    ensurePlaces(*this, count + 1U);
    conn[count] = link;
    normalIndex[count] = count;
    normals[count] = normal;
    ++count;
    ccw = false;
    return true;
}

bool GLPolygonDesc::removeVertex(unsigned char link) {
    auto const end = conn.begin() + count;
    auto const found = std::find(conn.begin(), end, link);
    if (found == end) {
        return false;
    }
    normalIndex.erase(normalIndex.begin() + (found - conn.begin()));
    conn.erase(found);
    --count;
    ccw = false;
    return true;
}

void GLPolygonDesc::swapVertices(unsigned char i, unsigned char j) {
    if (i >= count || j >= count) {
        // A handler has lost count of its vertices: what follows would be a wrong surface.
        stop("GLPolygonDesc::swapVertices invalid index");
    }
    std::swap(conn[i], conn[j]);
    std::swap(normalIndex[i], normalIndex[j]);
}

GLVec3f const& GLPolygonDesc::position(unsigned int k) const { return (*points)[conn[k]]; }

GLVec3f const& GLPolygonDesc::normal(unsigned int k) const { return normals[normalIndex[k]]; }

void GLPolygonDesc::computeCentre() {
    centre = GLVec3f();
    meanNormal = GLVec3f();
    if (count == 0) {
        return;
    }
    for (unsigned int k = 0; k < count; ++k) {
        centre += position(k);
        meanNormal += normal(k);
    }
    auto const vertices = static_cast<float>(count);
    centre = GLVec3f(centre.x / vertices, centre.y / vertices, centre.z / vertices);
    meanNormal.normalize();
}

void GLPolygonDesc::arrange(unsigned char first, unsigned char second, bool close,
                            std::optional<GLVec3f> const& givenNormal) {
    computeCentre();
    GLVec3f axis = meanNormal;
    if (first != 0) {
        swapVertices(0, first);
    }
    if (second != 0) {
        swapVertices(1, second);
    }
    unsigned char const centrePlace = moveCentreToFront(*this, axis);
    unsigned int start = 0;
    if (hasCentre && centrePlace != 0) {
        // The first vertex now stands where the centre was; it and the second follow the centre.
        start = 1;
        if (second != 0) {
            swapVertices(1, 2);
            start = 2;
        }
        swapVertices(centrePlace, 1);
    }
    sortByAngle(*this, start, givenNormal.value_or(axis));
    closed = close && (hasCentre || fan);
    if (closed) {
        repeatFirstOfRim(*this);
    }
    ccw = true;
}

std::unique_ptr<GLPolygon> GLPolygonDesc::createPolygon() const {
    auto polygon = std::make_unique<GLPolygon>(static_cast<unsigned int>(count));
    for (unsigned int k = 0; k < count; ++k) {
        polygon->vertex(k) = position(k);
        polygon->normal(k) = normal(k);
    }
    polygon->setProperties(fan, strip, closed, ccw);
    return polygon;
}
