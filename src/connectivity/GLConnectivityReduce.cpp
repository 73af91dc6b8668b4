// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../objects/appendOwned.h"

#include <tamo/connectivity/GLConnectivity.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <numeric>
#include <utility>
#include <vector>

namespace {

GLVec3f const kCentre(0.5F, 0.5F, 0.5F);

unsigned int centreCount(GLPolygon const& polygon) {
    unsigned int count = 0;
    for (unsigned int j = 0; j < polygon.size(); ++j) {
        count += polygon.vertex(j) == kCentre ? 1U : 0U;
    }
    return count;
}

// A triangle fan in the making: its rim, and for every rim slot the position that has to follow it.
struct Rim {
    explicit Rim(unsigned int vertices)
        : fan(std::make_unique<GLPolygon>(vertices)), successors(vertices), vertexCount(vertices) {}

    // Appends vertex `place` of `polygon`, counted cyclically, with the normal of its centre vertex.
    void append(GLPolygon const& polygon, unsigned int centre, unsigned int place) {
        fan->normal(slot) = polygon.normal(centre);
        fan->vertex(slot) = polygon.vertex(place % polygon.size());
        successors[slot] = polygon.vertex((place + 1) % polygon.size());
        ++slot;
    }

    // Returns how many slots each of the polygon's centre vertices fills.
    static unsigned int slotsPerCentre(GLPolygon const& polygon) { return polygon.size() == 4 ? 2 : 1; }

    void appendRimOf(GLPolygon const& polygon) {
        for (unsigned int j = 0; j < polygon.size(); ++j) {
            if (polygon.vertex(j) != kCentre) {
                continue;
            }
            for (unsigned int step = 1; step <= slotsPerCentre(polygon); ++step) {
                append(polygon, j, j + step);
            }
        }
    }

    void close() {
        fan->vertex(slot) = fan->vertex(1);
        fan->normal(slot) = fan->normal(1);
        successors[slot] = successors[1];
    }

    void swapSlots(unsigned int a, unsigned int b) {
        fan->swapV(a, b);
        std::swap(successors[a], successors[b]);
    }

    // Reorders the slots so that each is followed by the one at its successor's position.
    void chain() {
        unsigned int const last = vertexCount - 2;
        for (unsigned int i = 1; i < last; ++i) {
            unsigned int const candidate = i + 1;
            unsigned int found = candidate;
            while (found <= last && fan->vertex(found) != successors[i]) {
                ++found;
            }
            if (found <= last) {
                swapSlots(candidate, found);
            } else if (candidate != last) {
                swapSlots(candidate, last);
            } else {
                std::cerr << "ERROR (triangle fan sort)";
            }
        }
    }

    std::unique_ptr<GLPolygon> fan;
    std::vector<GLVec3f> successors;
    unsigned int vertexCount;
    unsigned int slot = 1;
};

} // namespace

unsigned int GLConnectivity::makeTriangleFan(GLObject* object, GLAccess3f const& /*direction*/) {
    if (object->size() < 3) {
        return 0;
    }
    unsigned int vertices = 0;
    unsigned int centres = 0;
    unsigned int slots = 1;
    unsigned int written = 1;
    for (GLPolygon const* polygon : std::as_const(*object)) {
        if (polygon->isFan()) {
            return 0;
        }
        unsigned int const ownCentres = centreCount(*polygon);
        vertices += polygon->size();
        centres += ownCentres;
        slots += polygon->size() < 4 ? 1U : 2U;
        written += ownCentres * Rim::slotsPerCentre(*polygon);
    }
    // A polygon reserves slots for one centre vertex. A second one may take those of a polygon without any, but the
    // closing slot has to fit too.
    if (centres != object->size() || written > slots) {
        return 0;
    }

    Rim rim(slots + 1);
    rim.fan->vertex(0) = kCentre;
    for (GLPolygon const* polygon : std::as_const(*object)) {
        rim.appendRimOf(*polygon);
    }
    rim.close();
    rim.fan->setFan(true);
    rim.fan->setClosed(true);
    rim.chain();
    rim.fan->setNormals();

    // Clearing keeps the slots, so that appending cannot fail.
    object->clear();
    return vertices - tamo::appendOwned(*object, std::move(rim.fan)).size();
}

GLPolygon* GLConnectivity::combinePolygons(GLPolygon* p, GLPolygon* q, unsigned int n, bool sameNormal) {
    if (p->isFan() || q->isFan()) {
        return nullptr;
    }
    if (n != 0 && (p->size() != n || q->size() != n)) {
        return nullptr;
    }
    if (sameNormal && GLVec3f(q->normal(0)).dot(p->normal(0)) != 1.0F) {
        return nullptr;
    }

    constexpr int kShared = 2;
    constexpr int kTaken = -1;
    std::vector<int> marksOfP(p->size());
    std::vector<int> marksOfQ(q->size());
    std::iota(marksOfP.begin(), marksOfP.end(), 0);
    std::iota(marksOfQ.begin(), marksOfQ.end(), 0);
    unsigned int shared = 0;
    for (unsigned int i = 0; i < p->size(); ++i) {
        for (unsigned int j = 0; j < q->size(); ++j) {
            if (p->vertex(i) == q->vertex(j)) {
                ++shared;
                marksOfQ[j] = kTaken;
                marksOfP[i] = kShared;
            }
        }
    }
    if (shared != 2) {
        return nullptr;
    }

    std::vector<GLVec3f> positions;
    positions.reserve(p->size() + q->size());
    // The mark of an untouched vertex 2 looks like a shared one, so the outline of a larger polygon may start there; of
    // two triangles, a shared vertex always comes first.
    auto const scanned = marksOfP.begin() + static_cast<std::ptrdiff_t>(std::min(p->size(), q->size()));
    auto const first = std::find(marksOfP.begin(), scanned, kShared);
    if (first != scanned) {
        positions.push_back(p->vertex(static_cast<unsigned int>(first - marksOfP.begin())));
        *first = kTaken;
    }
    for (unsigned int i = 0; i < p->size(); ++i) {
        if (marksOfP[i] >= 0) {
            positions.push_back(p->vertex(i));
        }
    }
    for (unsigned int j = 0; j < q->size(); ++j) {
        if (marksOfQ[j] >= 0) {
            positions.push_back(q->vertex(j));
        }
    }

    auto result = std::make_unique<GLPolygon>(static_cast<unsigned int>(positions.size()));
    for (unsigned int i = 0; i < result->size(); ++i) {
        result->vertex(i) = positions[i];
    }
    result->normal(0) = result->sortCCW(p->normal(0));
    result->setNormals();
    result->color() = GLVec3f(0.0F, 1.0F, 0.0F);
    return result.release();
}

unsigned int GLConnectivity::reducePolygons(GLObject* object, unsigned int n, bool sameNormal) {
    unsigned int merges = 0;
    if (object->size() == 0) {
        return merges;
    }
    unsigned int before = 0;
    do {
        before = object->size();
        for (unsigned int i = 0; i + 1 < object->size(); ++i) {
            // After a merge the polygon that moves into place j waits for the next pass.
            for (unsigned int j = i + 1; j < object->size(); ++j) {
                if (GLPolygon* joined = combinePolygons((*object)[i], (*object)[j], n, sameNormal)) {
                    object->replace((*object)[i], joined);
                    object->erase((*object)[j]);
                    ++merges;
                }
            }
        }
    } while (object->size() != before);
    return merges;
}
