// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/ConnectivityOracle.h"

#include <algorithm>
#include <utility>

namespace tamo::test {

CornerLists const& sixTetrahedra() {
    static CornerLists const lists = {{0, 1, 3, 5}, {0, 2, 3, 7}, {0, 2, 4, 7},
                                      {0, 3, 5, 7}, {0, 4, 5, 7}, {2, 4, 6, 7}};
    return lists;
}

GLTesselation tesselationOf(CornerLists const& polyhedra) {
    GLTesselation tesselation(static_cast<unsigned int>(polyhedra.size()));
    for (unsigned int i = 0; i < polyhedra.size(); ++i) {
        GLPolyh polyhedron{};
        polyhedron.clear();
        std::for_each(polyhedra[i].begin(), polyhedra[i].end(), [&](unsigned int c) { polyhedron.push_back(c); });
        tesselation.setPolyh(i, polyhedron);
    }
    return tesselation;
}

namespace {

Plain3 const kCentre = {0.5F, 0.5F, 0.5F};

Plain3 cornerAt(unsigned int c) {
    return {static_cast<float>(c & 1U), static_cast<float>(c >> 1U & 1U), static_cast<float>(c >> 2U)};
}

bool isForeground(unsigned int configuration, unsigned int corner) { return (configuration >> corner) % 2 == 1; }

void cut(std::vector<unsigned int> const& corners, unsigned int configuration, PlainObject& object) {
    Plain3 direction;
    PlainPolygon polygon;
    for (unsigned int c : corners) {
        for (unsigned int d : corners) {
            if (isForeground(configuration, c) && !isForeground(configuration, d)) {
                polygon.vertices.push_back({{}, times(plus(cornerAt(c), cornerAt(d)), 0.5F)});
                direction = plus(direction, minus(cornerAt(d), cornerAt(c)));
            }
        }
    }
    if (polygon.size() >= 3) {
        sortPlain(polygon, unit(direction));
        computePlainNormals(polygon);
        polygon.color = {1, 0, 0};
        object.push_back(polygon);
    }
}

} // namespace

PlainObject wrapPlain(CornerLists const& polyhedra, unsigned int configuration, bool reduce) {
    PlainObject object;
    if (configuration == 0 || configuration == 255) {
        return object;
    }
    for (auto const& corners : polyhedra) {
        cut(corners, configuration, object);
    }
    if (reduce && object.size() >= 2) {
        unsigned int unchained = 0;
        reducePlain(object, 3, true);
        fanPlain(object, unchained);
        reducePlain(object, 3, false);
    }
    return object;
}

std::optional<PlainPolygon> combinePlain(PlainPolygon const& p, PlainPolygon const& q, unsigned int n,
                                         bool sameNormal) {
    if (p.fan || q.fan || (n != 0 && (p.size() != n || q.size() != n))) {
        return std::nullopt;
    }
    if (sameNormal && !(dotOf(q.vertices[0].normal, p.vertices[0].normal) == 1.0F)) {
        return std::nullopt;
    }
    std::vector<int> a;
    std::vector<int> b;
    for (unsigned int i = 0; i < p.size(); ++i) {
        a.push_back(static_cast<int>(i));
    }
    for (unsigned int j = 0; j < q.size(); ++j) {
        b.push_back(static_cast<int>(j));
    }
    unsigned int shared = 0;
    for (unsigned int i = 0; i < p.size(); ++i) {
        for (unsigned int j = 0; j < q.size(); ++j) {
            if (isEqual(p.position(i), q.position(j))) {
                ++shared;
                a[i] = 2;
                b[j] = -1;
            }
        }
    }
    if (shared != 2) {
        return std::nullopt;
    }
    PlainPolygon result;
    auto const write = [&result](Plain3 position) { result.vertices.push_back({{}, position}); };
    for (unsigned int i = 0; i < p.size() && i < q.size(); ++i) {
        if (a[i] == 2) {
            write(p.position(i));
            a[i] = -1;
            break;
        }
    }
    for (unsigned int i = 0; i < p.size(); ++i) {
        if (a[i] >= 0) {
            write(p.position(i));
        }
    }
    for (unsigned int j = 0; j < q.size(); ++j) {
        if (b[j] >= 0) {
            write(q.position(j));
        }
    }
    result.vertices[0].normal = sortPlain(result, p.vertices[0].normal);
    computePlainNormals(result);
    result.color = {0, 1, 0};
    return result;
}

unsigned int reducePlain(PlainObject& object, unsigned int n, bool sameNormal) {
    unsigned int merges = 0;
    std::size_t before = 0;
    while (object.size() != before) {
        before = object.size();
        for (std::size_t i = 0; i + 1 < object.size(); ++i) {
            for (std::size_t j = i + 1; j < object.size(); ++j) {
                if (auto joined = combinePlain(object[i], object[j], n, sameNormal)) {
                    object[i] = *joined;
                    object.erase(object.begin() + static_cast<std::ptrdiff_t>(j));
                    ++merges;
                }
            }
        }
    }
    return merges;
}

namespace {

struct Slot {
    Plain3 normal;
    Plain3 position;
    Plain3 successor;
};

// Brings behind every slot the one that stands where its successor is; slots are numbered from 1.
void chain(std::vector<Slot>& slots, unsigned int& unchained) {
    auto const n = static_cast<unsigned int>(slots.size());
    for (unsigned int i = 1; i + 3 <= n; ++i) {
        unsigned int const c = i + 1;
        if (isEqual(slots[c].position, slots[i].successor)) {
            continue;
        }
        unsigned int d = i + 2;
        while (d <= n - 2 && !isEqual(slots[d].position, slots[i].successor)) {
            ++d;
        }
        if (d <= n - 2) {
            std::swap(slots[c], slots[d]);
        } else if (c != n - 2) {
            std::swap(slots[c], slots[n - 2]);
        } else {
            ++unchained;
        }
    }
}

} // namespace

unsigned int fanPlain(PlainObject& object, unsigned int& unchained) {
    unsigned int vertices = 0;
    unsigned int rim = 1;
    std::size_t centres = 0;
    bool hasFan = false;
    std::vector<Slot> slots(1);
    slots[0].position = kCentre;
    for (PlainPolygon const& polygon : object) {
        unsigned int const size = polygon.size();
        hasFan = hasFan || polygon.fan;
        vertices += size;
        rim += size < 4 ? 1 : 2;
        for (unsigned int j = 0; j < size; ++j) {
            if (!isEqual(polygon.position(j), kCentre)) {
                continue;
            }
            ++centres;
            for (unsigned int k = 1; k <= (size == 4 ? 2U : 1U); ++k) {
                slots.push_back({polygon.vertices[j].normal, polygon.position((j + k) % size),
                                 polygon.position((j + k + 1) % size)});
            }
        }
    }
    if (object.size() < 3 || hasFan || centres != object.size()) {
        return 0;
    }
    slots.push_back(slots[1]);
    if (slots.size() > rim + 1) {
        return 0;
    }
    slots.resize(rim + 1);
    chain(slots, unchained);
    PlainPolygon fan;
    fan.fan = true;
    fan.closed = true;
    for (Slot const& slot : slots) {
        fan.vertices.push_back({slot.normal, slot.position});
    }
    computePlainNormals(fan);
    object = {fan};
    return vertices - fan.size();
}

PlainObject plainOf(GLObject const& object) {
    PlainObject plain;
    for (GLPolygon const* polygon : object) {
        plain.push_back(plainOf(*polygon));
    }
    return plain;
}

void fill(GLObject& object, PlainObject const& polygons) {
    for (PlainPolygon const& polygon : polygons) {
        object.push_back(new GLPolygon(libraryOf(polygon)));
    }
}

testing::AssertionResult sameObject(GLObject const& actual, PlainObject const& expected) {
    if (actual.size() != expected.size()) {
        return testing::AssertionFailure() << actual.size() << " polygons are not " << expected.size();
    }
    for (unsigned int i = 0; i < actual.size(); ++i) {
        if (testing::AssertionResult result = samePolygon(*actual[i], expected[i]); !result) {
            return testing::AssertionFailure() << "polygon " << i << ": " << result.message();
        }
    }
    return testing::AssertionSuccess();
}

} // namespace tamo::test
