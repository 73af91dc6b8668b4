// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/PlainPolygon.h"

#include <cmath>
#include <cstring>
#include <utility>

namespace tamo::test {

Plain3 plus(Plain3 a, Plain3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Plain3 minus(Plain3 a, Plain3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Plain3 times(Plain3 a, float factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
Plain3 crossOf(Plain3 a, Plain3 b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
float dotOf(Plain3 a, Plain3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
float lengthOf(Plain3 a) { return sqrtf(a.x * a.x + a.y * a.y + a.z * a.z); }
bool isEqual(Plain3 a, Plain3 b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

Plain3 unit(Plain3 a) {
    float const size = lengthOf(a);
    return {a.x / size, a.y / size, a.z / size};
}

PlainPolygon plainOf(GLPolygon const& polygon) {
    PlainPolygon plain;
    for (unsigned int i = 0; i < polygon.size(); ++i) {
        float const* record = polygon.vData(i);
        plain.vertices.push_back({{record[0], record[1], record[2]}, {record[3], record[4], record[5]}});
    }
    plain.fan = polygon.isFan();
    plain.strip = polygon.isStrip();
    plain.closed = polygon.isClosed();
    plain.ccw = polygon.isCCW();
    plain.color = {polygon.color().x, polygon.color().y, polygon.color().z};
    return plain;
}

GLPolygon libraryOf(PlainPolygon const& plain) {
    GLPolygon polygon(plain.size());
    for (unsigned int i = 0; i < plain.size(); ++i) {
        std::memcpy(polygon.vData(i), &plain.vertices.at(i), sizeof(PlainVertex));
    }
    polygon.setProperties(plain.fan, plain.strip, plain.closed, plain.ccw);
    return polygon;
}

namespace {

// Reads the rules' notation: d(a, b) is the edge to vertex a from vertex b.
struct Notation {
    PlainPolygon& polygon;
    [[nodiscard]] Plain3 d(unsigned int a, unsigned int b) const {
        return minus(polygon.position(a), polygon.position(b));
    }
    [[nodiscard]] Plain3& normal(unsigned int k) const { return polygon.vertices.at(k).normal; }
};

Plain3 ncross(Plain3 a, Plain3 b) { return unit(crossOf(a, b)); }

void computeStrip(Notation const& p, unsigned int n) {
    p.normal(0) = ncross(p.d(1, 0), p.d(2, 0));
    p.normal(1) = ncross(p.d(2, 1), p.d(0, 1));
    for (unsigned int k = 2; k <= n - 2; ++k) {
        Plain3 const unnormalised = crossOf(p.d(k - 2, k), p.d(k - 1, k));
        p.normal(k) = unit(plus(unnormalised, ncross(p.d(k - 2, k), p.d(k + 1, k))));
    }
    p.normal(n - 1) = ncross(p.d(n - 3, n - 1), p.d(n - 2, n - 1));
}

void computeFan(Notation const& p, unsigned int n) {
    for (unsigned int k = 2; k <= n - 2; ++k) {
        p.normal(k) = unit(plus(ncross(p.d(0, k), p.d(k - 1, k)), ncross(p.d(k + 1, k), p.d(0, k))));
    }
    if (p.polygon.closed) {
        Plain3 const seam = unit(plus(ncross(p.d(2, 1), p.d(0, 1)), ncross(p.d(0, 1), p.d(n - 2, 1))));
        p.normal(1) = seam;
        p.normal(n - 1) = seam;
        Plain3 const ahead = ncross(p.d(1, n - 2), p.d(0, n - 2));
        p.normal(n - 2) = unit(plus(ahead, ncross(p.d(0, n - 2), p.d(n - 3, n - 2))));
    } else {
        p.normal(1) = ncross(p.d(2, 1), p.d(0, 1));
        p.normal(n - 1) = ncross(p.d(0, n - 1), p.d(n - 2, n - 1));
    }
    Plain3 sum = p.normal(1);
    for (unsigned int k = 2; k <= n - 2; ++k) {
        sum = plus(sum, p.normal(k));
    }
    p.normal(0) = unit(sum);
}

} // namespace

bool computePlainNormals(PlainPolygon& polygon) {
    unsigned int const n = polygon.size();
    Notation const p{polygon};
    if (n < 3) {
        return false;
    }
    if (n == 3) {
        Plain3 const normal = ncross(p.d(1, 0), p.d(2, 0));
        for (PlainVertex& vertex : polygon.vertices) {
            vertex.normal = normal;
        }
    } else if (polygon.strip) {
        computeStrip(p, n);
    } else if (polygon.fan) {
        computeFan(p, n);
    } else {
        for (unsigned int k = 0; k < n; ++k) {
            p.normal(k) = ncross(p.d((k + 1) % n, k), p.d((k + n - 1) % n, k));
        }
    }
    return true;
}

Plain3 sortPlain(PlainPolygon& polygon, Plain3 reference) {
    unsigned int const n = polygon.size();
    polygon.ccw = true;
    auto const from0 = [&](unsigned int k) { return minus(polygon.position(k), polygon.position(0)); };
    auto const squared = [&](unsigned int a, unsigned int b) {
        Plain3 const e = minus(polygon.position(b), polygon.position(a));
        return e.x * e.x + e.y * e.y + e.z * e.z;
    };
    if (n == 3) {
        Plain3 const c = crossOf(from0(1), from0(2));
        if (dotOf(reference, c) < 0) {
            std::swap(polygon.vertices[1], polygon.vertices[2]);
        }
        return c;
    }
    Plain3 sum;
    if (n < 3 || polygon.closed) {
        return unit(sum);
    }
    for (unsigned int i = 1; i <= n - 2; ++i) {
        float limit = squared(i, i + 1);
        for (unsigned int j = i + 1; j <= n - 1; ++j) {
            float const distance = squared(i, j);
            if (distance > limit || std::isnan(distance) || std::isnan(limit)) {
                continue;
            }
            Plain3 const c = crossOf(from0(i), from0(j));
            if (dotOf(reference, c) < 0) {
                std::swap(polygon.vertices[i], polygon.vertices[j]);
                limit = distance;
            } else {
                sum = plus(sum, c);
            }
        }
    }
    return unit(sum);
}

PlainPolygon randomPolygon(std::mt19937& random, unsigned int size, bool onLattice) {
    auto const coordinate = [&]() {
        return onLattice ? static_cast<float>(random() % 3) * 0.5F
                         : static_cast<float>(random() % (1U << 24)) / static_cast<float>(1U << 23) - 1.0F;
    };
    PlainPolygon polygon;
    for (unsigned int i = 0; i < size; ++i) {
        PlainVertex vertex;
        vertex.normal = {static_cast<float>(i), static_cast<float>(i) + 0.25F, -static_cast<float>(i)};
        vertex.position.x = coordinate();
        vertex.position.y = coordinate();
        vertex.position.z = coordinate();
        polygon.vertices.push_back(vertex);
    }
    return polygon;
}

PlainPolygon latticePolygon(unsigned int size) {
    std::mt19937 random(size);
    return randomPolygon(random, size, /*onLattice=*/true);
}

GLPolygon numberedPolygon(unsigned int size) {
    GLPolygon polygon(size);
    for (unsigned int i = 0; i < 6 * size; ++i) {
        polygon.vData(0)[i] = static_cast<float>(i + 1);
    }
    polygon.color() = GLVec3f{1, 0, 0};
    return polygon;
}

namespace {

// Distinguishes zeros by their sign; otherwise floats of the same value have the same bits.
bool isSame(float a, float b) {
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

} // namespace

testing::AssertionResult sameFloats(Plain3 actual, Plain3 expected) {
    if (isSame(actual.x, expected.x) && isSame(actual.y, expected.y) && isSame(actual.z, expected.z)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "(" << actual.x << ", " << actual.y << ", " << actual.z << ") is not ("
                                       << expected.x << ", " << expected.y << ", " << expected.z << ")";
}

testing::AssertionResult samePolygon(GLPolygon const& actual, PlainPolygon const& expected) {
    PlainPolygon const plain = plainOf(actual);
    if (plain.size() != expected.size()) {
        return testing::AssertionFailure() << plain.size() << " vertices are not " << expected.size();
    }
    if (plain.fan != expected.fan || plain.strip != expected.strip || plain.closed != expected.closed ||
        plain.ccw != expected.ccw) {
        return testing::AssertionFailure() << "flags differ";
    }
    for (unsigned int i = 0; i < plain.size(); ++i) {
        testing::AssertionResult position = sameFloats(plain.position(i), expected.position(i));
        testing::AssertionResult normal = sameFloats(plain.vertices[i].normal, expected.vertices[i].normal);
        if (!position || !normal) {
            return testing::AssertionFailure()
                   << "vertex " << i << ": position " << position.message() << ", normal " << normal.message();
        }
    }
    testing::AssertionResult color = sameFloats(plain.color, expected.color);
    return color ? testing::AssertionSuccess() : testing::AssertionFailure() << "colour " << color.message();
}

} // namespace tamo::test
