// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/WeldedMesh.h"

#include <utility>

namespace tamo::test {

void WeldedMesh::addTriangle(Point const& a, Point const& b, Point const& c) {
    _triangles.push_back({weld(a), weld(b), weld(c)});
}

unsigned int WeldedMesh::weld(Point const& point) {
    auto const [entry, isNew] = _vertices.emplace(point, static_cast<unsigned int>(_points.size()));
    if (isNew) {
        _points.push_back(point);
    }
    return entry->second;
}

testing::AssertionResult WeldedMesh::isClosed() const {
    std::map<std::pair<unsigned int, unsigned int>, int> edges;
    for (auto const& triangle : _triangles) {
        for (unsigned int i = 0; i < 3; ++i) {
            ++edges[{triangle.at(i), triangle.at((i + 1) % 3)}];
        }
    }
    for (auto const& [edge, count] : edges) {
        auto const reverse = edges.find({edge.second, edge.first});
        if (edge.first == edge.second || count != 1 || reverse == edges.end() || reverse->second != 1) {
            return testing::AssertionFailure()
                   << "the edge from vertex " << edge.first << " to " << edge.second << " is run " << count
                   << " times, its reverse " << (reverse == edges.end() ? 0 : reverse->second) << " times";
        }
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult WeldedMesh::isManifold() const {
    // The edges opposite to a vertex form a map from each rim vertex to the next.
    std::vector<std::map<unsigned int, unsigned int>> rims(_points.size());
    for (auto const& triangle : _triangles) {
        for (unsigned int i = 0; i < 3; ++i) {
            rims.at(triangle.at(i))[triangle.at((i + 1) % 3)] = triangle.at((i + 2) % 3);
        }
    }
    for (auto const& rim : rims) {
        unsigned int const start = rim.begin()->first;
        unsigned int place = start;
        std::size_t length = 0;
        do {
            place = rim.at(place);
            ++length;
        } while (place != start && length <= rim.size());
        if (length != rim.size()) {
            return testing::AssertionFailure() << "a ring of " << length << " out of " << rim.size() << " triangles";
        }
    }
    return testing::AssertionSuccess();
}

long long WeldedMesh::volume48() const {
    // Six times a tetrahedron's volume, in cubed half voxels: 6 * 8 = 48.
    long long volume = 0;
    for (auto const& triangle : _triangles) {
        Point const& a = _points.at(triangle[0]);
        Point const& b = _points.at(triangle[1]);
        Point const& c = _points.at(triangle[2]);
        volume += a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                  a[2] * (b[0] * c[1] - b[1] * c[0]);
    }
    return volume;
}

long long WeldedMesh::eulerCharacteristic() const {
    auto const faces = static_cast<long long>(_triangles.size());
    return static_cast<long long>(_points.size()) - faces * 3 / 2 + faces;
}

} // namespace tamo::test
