// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLPolygon.h>

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tamo::test {

/// Three floats whose arithmetic is written out in PlainPolygon.cpp, apart from the library's.
struct Plain3 {
    float x = 0;
    float y = 0;
    float z = 0;
};

Plain3 plus(Plain3 a, Plain3 b);
Plain3 minus(Plain3 a, Plain3 b);
Plain3 times(Plain3 a, float factor);
Plain3 crossOf(Plain3 a, Plain3 b);
float dotOf(Plain3 a, Plain3 b);
float lengthOf(Plain3 a);
Plain3 unit(Plain3 a);
bool isEqual(Plain3 a, Plain3 b);

struct PlainVertex {
    Plain3 normal;
    Plain3 position;
};

/// The oracle's polygon: the slow, obvious form of `GLPolygon`.
struct PlainPolygon {
    std::vector<PlainVertex> vertices;
    bool fan = false;
    bool strip = false;
    bool closed = false;
    bool ccw = false;
    Plain3 color;

    [[nodiscard]] unsigned int size() const { return static_cast<unsigned int>(vertices.size()); }
    [[nodiscard]] Plain3 position(unsigned int i) const { return vertices.at(i).position; }
};

PlainPolygon plainOf(GLPolygon const& polygon);
GLPolygon libraryOf(PlainPolygon const& polygon);

/// Computes the normals by the drawing mode's rule; false below 3 vertices.
bool computePlainNormals(PlainPolygon& polygon);
/// Orders the vertices counter-clockwise about `reference`; returns the face direction.
Plain3 sortPlain(PlainPolygon& polygon, Plain3 reference);

/// Returns a number from 0 to `bound` - 1; the standard distributions differ between libraries.
inline unsigned int below(std::mt19937& random, unsigned int bound) {
    return static_cast<unsigned int>(random() % bound);
}

/// Makes `size` vertices with different normals. On a lattice the positions are halves from 0 to 1, so that distances
/// tie and vertices coincide; otherwise they are scattered over [-1, 1).
PlainPolygon randomPolygon(std::mt19937& random, unsigned int size, bool onLattice);
/// Makes the same `size` vertices on the lattice every time.
PlainPolygon latticePolygon(unsigned int size);
/// Makes `size` vertices whose floats are 1, 2, 3, ... and whose colour is (1, 0, 0).
GLPolygon numberedPolygon(unsigned int size);

/// Succeeds for the same bits, and for any two NaN.
testing::AssertionResult sameFloats(Plain3 actual, Plain3 expected);
testing::AssertionResult samePolygon(GLPolygon const& actual, PlainPolygon const& expected);

} // namespace tamo::test
