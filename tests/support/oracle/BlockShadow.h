// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLVec3f.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace tamo::test {

/// Returns the corners of the surface of a block of foreground under the system N14II, the block's centre being the
/// origin.
///
/// `sides` is the block's size and `step` the distance between samples. The surface passes halfway along every link
/// from the outermost samples to the background, so that an edge of the block is sharp where the system has a link
/// across it and bevelled where it has none.
inline std::vector<GLVec3f> makeBlockCorners(std::array<float, 3> const& sides, float step) {
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

/// Returns the area that the convex hull of `points` covers, seen along `right` x `up`; both are unit vectors.
inline double computeShadowArea(std::vector<GLVec3f> const& points, GLVec3f const& right, GLVec3f const& up) {
    using Point = std::array<double, 2>;
    std::vector<Point> flat;
    for (GLVec3f const& p : points) {
        flat.push_back({p.dot(right), p.dot(up)});
    }
    std::sort(flat.begin(), flat.end());
    auto const turn = [](Point const& a, Point const& b, Point const& c) {
        return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
    };
    // The lower rim from left to right, then the upper one back.
    auto const rim = [&turn](auto first, auto last) {
        std::vector<Point> hull;
        for (; first != last; ++first) {
            while (hull.size() > 1 && turn(hull[hull.size() - 2], hull.back(), *first) <= 0) {
                hull.pop_back();
            }
            hull.push_back(*first);
        }
        return hull;
    };
    std::vector<Point> hull = rim(flat.begin(), flat.end());
    std::vector<Point> const upper = rim(flat.rbegin(), flat.rend());
    hull.insert(hull.end(), upper.begin(), upper.end());
    double area = 0;
    for (std::size_t i = 0; i < hull.size(); ++i) {
        area += turn({0, 0}, hull[i], hull[(i + 1) % hull.size()]) / 2;
    }
    return area;
}

} // namespace tamo::test
