// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/PlainDescriptor.h"

#include <cmath>
#include <utility>

namespace tamo::test {

void PlainDescriptor::add(unsigned int link, Plain3 normal) {
    normals.at(size()) = normal;
    slots.push_back(size());
    links.push_back(link);
    ccw = false;
}

void PlainDescriptor::remove(unsigned int link) {
    for (unsigned int k = 0; k < size(); ++k) {
        if (links[k] == link) {
            links.erase(links.begin() + k);
            slots.erase(slots.begin() + k);
            ccw = false;
            return;
        }
    }
}

void PlainDescriptor::exchange(unsigned int i, unsigned int j) {
    std::swap(links.at(i), links.at(j));
    std::swap(slots.at(i), slots.at(j));
}

void PlainDescriptor::measureCentre() {
    centre = Plain3();
    meanNormal = Plain3();
    for (unsigned int k = 0; k < size(); ++k) {
        centre = plus(centre, position(k));
        meanNormal = plus(meanNormal, normal(k));
    }
    if (size() > 0) {
        auto const n = static_cast<float>(size());
        centre = {centre.x / n, centre.y / n, centre.z / n};
        meanNormal = unit(meanNormal);
    }
}

void PlainDescriptor::arrange(unsigned int first, unsigned int second, bool close, std::optional<Plain3> given) {
    measureCentre();
    Plain3 axis = meanNormal;
    exchange(0, first);
    if (second != 0) {
        exchange(1, second);
    }
    unsigned int k = 0;
    while (k < size() && !isEqual(position(k), centre) && !isEqual(position(k), {0.5F, 0.5F, 0.5F})) {
        ++k;
    }
    hasCentre = k < size();
    unsigned int start = 0;
    if (hasCentre) {
        if (axis.x == 0 && axis.y == 0 && axis.z == 0) {
            axis = normal(k);
        }
        exchange(0, k);
        if (k != 0) {
            start = 1;
            if (second != 0) {
                exchange(1, 2);
                start = 2;
            }
            exchange(k, 1);
        }
    }
    sortBehind(start, given ? *given : axis);
    closed = close && (hasCentre || fan);
    if (closed) {
        links.push_back(links.at(1));
        slots.push_back(slots.at(1));
    }
    ccw = true;
}

double PlainDescriptor::turnTo(unsigned int vertex, unsigned int reference, Plain3 axis) const {
    // From the point to the axis' foot in the plane through the centroid.
    auto const inward = [&](Plain3 p) {
        float const height = dotOf(minus(p, centre), axis) / dotOf(axis, axis);
        return minus(plus(times(axis, height), centre), p);
    };
    Plain3 const r = inward(position(reference));
    Plain3 const q = inward(position(vertex));
    Plain3 const gap = minus(Plain3{-r.x, -r.y, -r.z}, q);
    if (double{dotOf(gap, gap)} < 0.0001) {
        return 3.14159265358979323846;
    }
    float cosine = dotOf(r, q) / (lengthOf(q) * lengthOf(r));
    cosine = cosine > 1 ? 1 : cosine;
    cosine = cosine < -1 ? -1 : cosine;
    double const angle = acosf(cosine);
    return dotOf(crossOf(q, r), axis) >= 0 ? 6.283185307179586 - angle : angle;
}

void PlainDescriptor::sortBehind(unsigned int start, Plain3 axis) {
    std::vector<double> angles(size());
    for (unsigned int j = start + 1; j < size(); ++j) {
        angles[j] = turnTo(j, start, axis);
    }
    for (unsigned int a = start + 1; a < size(); ++a) {
        for (unsigned int b = a + 1; b < size(); ++b) {
            if (angles[a] > angles[b]) {
                double const smaller = angles[b];
                angles[b] = static_cast<float>(angles[a]);
                angles[a] = smaller;
                exchange(a, b);
            }
        }
    }
}

PlainPolygon PlainDescriptor::polygon() const {
    PlainPolygon made;
    for (unsigned int k = 0; k < size(); ++k) {
        made.vertices.push_back({normal(k), position(k)});
    }
    made.fan = fan;
    made.strip = strip;
    made.closed = closed;
    made.ccw = ccw;
    return made;
}

} // namespace tamo::test
