// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/geometry/GLPolygon.h>

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::size_t kFloatsPerVertex = 6;
constexpr std::size_t kPositionOffset = 3;

std::size_t floatCount(unsigned int vertices) { return kFloatsPerVertex * vertices; }

} // namespace

GLPolygon::GLPolygon() : GLPolygon(3U) {}

GLPolygon::GLPolygon(unsigned int n) : _data(floatCount(n), 0.0F), _count(n) {}

GLPolygon::GLPolygon(GLPolygon const& p, float scale)
    : _data(p._data), _count(p._count), _fan(p._fan), _strip(p._strip), _closed(p._closed), _ccw(p._ccw) {
    for (unsigned int i = 0; i < _count; ++i) {
        vertex(i) *= scale;
    }
}

GLPolygon::GLPolygon(GLPolygon const& p, GLCoord3f const& offset)
    : _data(p._data), _count(p._count), _fan(p._fan), _strip(p._strip), _closed(p._closed), _ccw(p._ccw) {
    for (std::size_t i = kPositionOffset; i < _data.size(); i += kFloatsPerVertex) {
        _data[i] += offset.x;
        _data[i + 1] += offset.y;
        _data[i + 2] += offset.z;
    }
}

GLPolygon& GLPolygon::operator=(GLPolygon const& p) = default;

GLPolygon::~GLPolygon() = default;

unsigned int GLPolygon::size() const { return _count; }

GLVec3f& GLPolygon::color() { return _color; }
GLVec3f const& GLPolygon::color() const { return _color; }

float* GLPolygon::_begin() { return &_data.front(); }
float const* GLPolygon::_begin() const { return &_data.front(); }

float* GLPolygon::vData(unsigned int i) { return _begin() + floatCount(i); }
float const* GLPolygon::vData(unsigned int i) const { return _begin() + floatCount(i); }

GLAccess3f GLPolygon::normal(unsigned int i) { return GLAccess3f(vData(i)); }
GLAccess3f GLPolygon::vertex(unsigned int i) { return GLAccess3f(vData(i) + kPositionOffset); }
GLAccessNV GLPolygon::access(unsigned int i) { return {vData(i) + kPositionOffset, vData(i)}; }

GLConstAccess3f GLPolygon::normal(unsigned int i) const { return GLConstAccess3f(vData(i)); }
GLConstAccess3f GLPolygon::vertex(unsigned int i) const { return GLConstAccess3f(vData(i) + kPositionOffset); }
GLConstAccessNV GLPolygon::access(unsigned int i) const { return {vData(i) + kPositionOffset, vData(i)}; }

bool GLPolygon::isFan() const { return _fan; }
bool GLPolygon::isStrip() const { return _strip; }
bool GLPolygon::isClosed() const { return _closed; }
bool GLPolygon::isCCW() const { return _ccw; }

void GLPolygon::setFan(bool b) {
    _fan = b;
    _strip = false;
}

void GLPolygon::setStrip(bool b) {
    _strip = b;
    _fan = false;
}

void GLPolygon::setClosed(bool b) { _closed = b; }
void GLPolygon::setCCW(bool b) { _ccw = b; }

void GLPolygon::setProperties(bool fan, bool strip, bool closed, bool ccw) {
    _fan = fan;
    _strip = strip;
    _closed = closed;
    _ccw = ccw;
}

int GLPolygon::type() const {
    // The OpenGL values themselves, so that only the receivers need OpenGL's headers.
    constexpr int kTriangleStrip = 5;
    constexpr int kTriangleFan = 6;
    constexpr int kPolygon = 9;
    if (_fan) {
        return kTriangleFan;
    }
    return _strip ? kTriangleStrip : kPolygon;
}

bool GLPolygon::resize(unsigned int n) {
    _data.resize(floatCount(n), 0.0F);
    _count = n;
    // Compares vertices with floats, in 32 bits: part of the interface, though it does not tell success.
    return n == static_cast<unsigned int>(kFloatsPerVertex) * n;
}

void GLPolygon::clear() {
    _data.clear();
    _count = 0;
}

bool GLPolygon::pushBack(GLAccess3f const& /*vertex*/) { return false; }
bool GLPolygon::pushBack(GLConstAccess3f const& /*vertex*/) { return false; }

bool GLPolygon::swapV(unsigned int i, unsigned int j) {
    if (i >= _count || j >= _count) {
        return false;
    }
    if (i != j) {
        std::swap_ranges(vData(i), vData(i) + kFloatsPerVertex, vData(j));
    }
    return true;
}

bool GLPolygon::eraseV(unsigned int i) {
    if (i >= _count) {
        return false;
    }
    auto const first = _data.begin() + static_cast<std::ptrdiff_t>(floatCount(i));
    _data.erase(first, first + static_cast<std::ptrdiff_t>(kFloatsPerVertex));
    --_count;
    return true;
}

float GLPolygon::area() const {
    float sum = 0.0F;
    for (unsigned int k = 1; k + 1 < _count; ++k) {
        GLVec3f const next = vertex(k + 1) - vertex(0);
        GLVec3f const current = vertex(k) - vertex(0);
        sum += 0.5F * next.cross(current).length();
    }
    return sum;
}

GLVec3f GLPolygon::sortCCW(GLAccess3f const& reference) {
    return sortCCW(static_cast<GLConstAccess3f const&>(reference));
}

GLVec3f GLPolygon::sortCCW(GLConstAccess3f const& reference) {
    GLVec3f const r = reference;
    _ccw = true;
    auto const turn = [this](unsigned int i, unsigned int j) {
        return (vertex(i) - vertex(0)).cross(vertex(j) - vertex(0));
    };
    if (_count == 3) {
        GLVec3f const c = turn(1, 2);
        if (r.dot(c) < 0.0F) {
            swapV(1, 2);
        }
        return c;
    }
    GLVec3f direction;
    // A closed fan repeats its first rim vertex at the end; reordering would tear it open.
    if (_closed || _count < 3) {
        direction.normalize();
        return direction;
    }
    for (unsigned int i = 1; i + 1 < _count; ++i) {
        float nearest = vertex(i).squaredDistance(vertex(i + 1));
        for (unsigned int j = i + 1; j < _count; ++j) {
            float const distance = vertex(i).squaredDistance(vertex(j));
            // Written so that NaN, on either side, skips j; a tie does not.
            if (!(distance <= nearest)) {
                continue;
            }
            GLVec3f const c = turn(i, j);
            if (r.dot(c) < 0.0F) {
                swapV(i, j);
                nearest = distance;
            } else {
                direction += c;
            }
        }
    }
    direction.normalize();
    return direction;
}
