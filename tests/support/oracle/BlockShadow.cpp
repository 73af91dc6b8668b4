// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/BlockShadow.h"

#include <algorithm>
#include <cstddef>

namespace tamo::test {

namespace {

using Point = std::array<double, 2>;

// Returns twice the area of a triangle, positive where it turns left.
double turn(Point const& a, Point const& b, Point const& c) {
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

// Returns the points of a sorted range that keep turning left: the hull below them.
template <typename Iterator> std::vector<Point> rimOf(Iterator first, Iterator last) {
    std::vector<Point> rim;
    for (; first != last; ++first) {
        while (rim.size() > 1 && turn(rim[rim.size() - 2], rim.back(), *first) <= 0) {
            rim.pop_back();
        }
        rim.push_back(*first);
    }
    return rim;
}

} // namespace

std::vector<GLVec3f> makeBlockCorners(std::array<float, 3> const& sides, float step) {
    // One of each pair of opposite links.
    std::array<GLVec3f, 7> const links = {
        {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0}, {1, 0, 1}, {0, 1, -1}, {1, 1, 1}}};
    auto const leaves = [](float along, float side) { return along == 0.0F || along == side; };
    std::vector<GLVec3f> corners;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        auto const sign = [corner](unsigned int axis) { return (corner >> axis & 1U) != 0 ? 1.0F : -1.0F; };
        GLVec3f const sample(sign(0) * (sides[0] - step) / 2, sign(1) * (sides[1] - step) / 2,
                             sign(2) * (sides[2] - step) / 2);
        for (GLVec3f const& link : links) {
            for (float const direction : {1.0F, -1.0F}) {
                GLVec3f const d = link * direction;
                if (leaves(d.x, sign(0)) && leaves(d.y, sign(1)) && leaves(d.z, sign(2))) {
                    corners.push_back(sample + d * (step / 2));
                }
            }
        }
    }
    return corners;
}

double computeShadowArea(std::vector<GLVec3f> const& points, GLVec3f const& right, GLVec3f const& up) {
    std::vector<Point> flat;
    flat.reserve(points.size());
    for (GLVec3f const& p : points) {
        flat.push_back({p.dot(right), p.dot(up)});
    }
    std::sort(flat.begin(), flat.end());
    // The lower rim from left to right, then the upper one back.
    std::vector<Point> hull = rimOf(flat.begin(), flat.end());
    std::vector<Point> const upper = rimOf(flat.rbegin(), flat.rend());
    hull.insert(hull.end(), upper.begin(), upper.end());
    double area = 0;
    for (std::size_t i = 0; i < hull.size(); ++i) {
        area += turn({0, 0}, hull[i], hull[(i + 1) % hull.size()]) / 2;
    }
    return area;
}

} // namespace tamo::test
