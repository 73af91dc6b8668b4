// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/PlainBuilder.h"

#include <cmath>
#include <stdexcept>

namespace tamo::test {

// One foreground and one background component, and the links between them.
struct PlainBuilder::Pair {
    unsigned int fg;
    unsigned int bg;
    PlainDescriptor vertices;
    unsigned int info = 0;
    bool inverted = false;

    [[nodiscard]] bool hasCentre() const { return (info & 4) != 0; }
};

PlainBuilder::PlainBuilder(unsigned int config, bool hadTable)
    : _adjacency(config), _hasTable(_adjacency.isComplete || hadTable) {
    for (unsigned int link = 0; link < 28; ++link) {
        _info[link] = plainLinkType(link);
        _info[link] += _adjacency.isForeground(link) ? 0x100 : 0;
        _info[link] += _adjacency.isBackground(link) ? 0x200 : 0;
        CornerPair const& ends = plainLinks()[link];
        Plain3 const low = plainCorner(ends[0]);
        Plain3 const high = plainCorner(ends[1]);
        _middles.push_back(times(plus(low, high), 0.5F));
        bool const isEdge = plainLinkType(link) == 1;
        _up.push_back(isEdge ? minus(high, low) : unit(minus(high, low)));
        _down.push_back(isEdge ? minus(low, high) : unit(minus(low, high)));
    }
}

PlainCell PlainBuilder::build(unsigned int configuration, bool recomputeNormals) const {
    PlainCell cell;
    for (unsigned int const fg : plainComponents(configuration, _adjacency.foreground)) {
        for (unsigned int const bg : plainComponents(255 - configuration, _adjacency.background)) {
            Pair pair{fg, bg, PlainDescriptor(_middles)};
            collect(pair);
            if (pair.vertices.size() == 0) {
                ++cell.pairsWithoutLink;
            } else {
                buildPair(pair, cell);
            }
        }
    }
    if (recomputeNormals) {
        for (PlainPolygon& polygon : cell.polygons) {
            computePlainNormals(polygon);
        }
    }
    return cell;
}

PlainCell PlainBuilder::buildWithout(unsigned int fg, unsigned int bg,
                                     std::vector<unsigned int> const& missingLinks) const {
    Pair pair{fg, bg, PlainDescriptor(_middles)};
    collect(pair);
    for (unsigned int const link : missingLinks) {
        pair.vertices.remove(link);
    }
    pair.info = 0;
    for (unsigned int const link : pair.vertices.links) {
        pair.info |= info(link);
    }
    if (pair.vertices.size() < 3) {
        throw std::length_error("no polygon is left");
    }
    PlainCell cell;
    buildPair(pair, cell);
    return cell;
}

void PlainBuilder::collect(Pair& pair) const {
    for (unsigned int link = 0; link < 28; ++link) {
        CornerPair const& ends = plainLinks()[link];
        bool const goesUp = (pair.fg >> ends[0]) % 2 == 1 && (pair.bg >> ends[1]) % 2 == 1;
        bool const goesDown = (pair.bg >> ends[0]) % 2 == 1 && (pair.fg >> ends[1]) % 2 == 1;
        if ((goesUp || goesDown) && _adjacency.isForeground(link) && _adjacency.isBackground(link)) {
            pair.vertices.add(link, goesUp ? _up[link] : _down[link]);
            pair.info |= info(link);
        }
    }
}

void PlainBuilder::buildPair(Pair& pair, PlainCell& cell) const {
    auto const wordOf = [this](unsigned int corners) { return _hasTable ? plainCaseWord(corners) : 0; };
    unsigned int word = wordOf(pair.fg);
    pair.inverted = word >= 0x800;
    if (pair.inverted && pair.fg + pair.bg != 255) {
        word = wordOf(pair.bg);
        pair.inverted = false;
    }
    pair.vertices.fan = true;
    if (word == 0) {
        word = wordOf(pair.bg);
    }
    dispatch(word % 256, pair, cell);
}

void PlainBuilder::dispatch(unsigned int code, Pair& pair, PlainCell& cell) const {
    if (code == 1 || (code == 2 && pair.hasCentre())) {
        buildFromKind(pair, cell, pair.hasCentre() ? 0 : 2);
    } else if (code == 2) {
        buildFaceDiagonal(pair, cell);
    } else if (code == 4) {
        buildSpaceDiagonal(pair, cell);
    } else if (code == 8) {
        buildFromKind(pair, cell, 2);
    } else if (code == 16) {
        buildCorner(pair, cell);
    } else if (code == 32) {
        cell.isOpen = true;
    } else if (code == 64) {
        buildPath(pair, cell);
    } else if (code == 128 && pair.hasCentre()) {
        buildAroundCentre(pair, cell);
    } else {
        buildFromKind(pair, cell, 0);
    }
}

// Makes one fan from the first vertex on a link of the type `kind`, or from the first vertex of all.
void PlainBuilder::buildFromKind(Pair& pair, PlainCell& cell, unsigned int kind) const {
    unsigned int start = 0;
    for (unsigned int k = 0; k < pair.vertices.size(); ++k) {
        if ((info(pair.vertices.links[k]) & kind) != 0) {
            start = k;
            break;
        }
    }
    pair.vertices.arrange(start, 0, pair.hasCentre());
    cell.polygons.push_back(pair.vertices.polygon());
}

namespace {

// Returns the n-th corner of a set, counted from 0; corner 0 where the set is smaller.
Plain3 nthCorner(unsigned int corners, int n) {
    for (unsigned int corner = 0; corner < 8; ++corner) {
        if ((corners >> corner) % 2 == 1 && n-- == 0) {
            return plainCorner(corner);
        }
    }
    return plainCorner(0);
}

} // namespace

void PlainBuilder::buildFaceDiagonal(Pair& pair, PlainCell& cell) const {
    Plain3 const diagonal = minus(nthCorner(pair.fg, 0), nthCorner(pair.fg, 1));
    unsigned int start = 0;
    for (unsigned int k = 0; k < pair.vertices.size(); ++k) {
        if (std::fabs(dotOf(diagonal, pair.vertices.normal(k))) < 0.0001F) {
            start = k;
            break;
        }
    }
    pair.vertices.arrange(start, 0, pair.hasCentre());
    cell.polygons.push_back(pair.vertices.polygon());
}

void PlainBuilder::buildSpaceDiagonal(Pair& pair, PlainCell& cell) const {
    PlainDescriptor& ring = pair.vertices;
    unsigned int const ends = pair.inverted ? 255 - pair.fg : pair.fg;
    Plain3 const low = nthCorner(ends, 0);
    Plain3 const high = nthCorner(ends, 1);
    auto const repeat = [&ring](unsigned int k) { ring.add(ring.links.at(k), ring.normal(k)); };
    bool const isPlainRing = ring.size() == 6;
    Plain3 const axis = isPlainRing && !pair.inverted ? minus(low, high) : minus(high, low);
    ring.arrange(0, 0, false, axis);
    if (!isPlainRing && double{dotOf(axis, minus(ring.position(0), ring.position(1)))} < 0.9999990000000025) {
        repeat(0);
        ring.remove(0);
    }
    repeat(0);
    repeat(1);
    for (unsigned int k = 0; !isPlainRing && k < ring.size(); k += 2) {
        if (dotOf(axis, ring.normal(k)) > 0) {
            ring.exchange(k, k + 1);
        }
    }
    ring.strip = true;
    ring.fan = false;
    ring.ccw = true;
    cell.polygons.push_back(ring.polygon());
}

void PlainBuilder::buildCorner(Pair& pair, PlainCell& cell) const {
    if (pair.hasCentre()) {
        buildFromKind(pair, cell, 0);
        return;
    }
    unsigned int const shape = pair.inverted ? pair.bg : pair.fg;
    unsigned int const wanted = pair.inverted ? 0x201 : 0x101;
    std::vector<unsigned int> found = {0, 0};
    for (unsigned int link = 0; link < 28; ++link) {
        if ((plainMask(link) & shape) == plainMask(link) && (info(link) & wanted) == wanted) {
            found.push_back(link);
        }
    }
    unsigned int const shared = plainMask(found[found.size() - 1]) & plainMask(found[found.size() - 2]);
    unsigned int const kind = (pair.info & 2) != 0 ? 2 : 1;
    for (unsigned int k = 0; k < pair.vertices.size(); ++k) {
        unsigned int const link = pair.vertices.links[k];
        if ((plainMask(link) & shared) == shared && (info(link) & kind) != 0) {
            pair.vertices.arrange(k, 0, false);
            cell.polygons.push_back(pair.vertices.polygon());
            return;
        }
    }
    throw std::logic_error("no vertex at the middle corner");
}

void PlainBuilder::buildPath(Pair& pair, PlainCell& cell) const {
    if (pair.hasCentre()) {
        buildFromKind(pair, cell, 0);
        return;
    }
    unsigned int const shape = pair.inverted ? pair.bg : pair.fg;
    for (unsigned int link = 28; link-- > 24;) {
        if ((plainMask(link) & shape) == plainMask(link) && (info(link) & 0x300) == 0x300) {
            splitPath(pair, cell, link, shape);
            return;
        }
    }
    if ((pair.info & 2) != 0) {
        buildFromKind(pair, cell, 2);
    } else {
        cell.isOpen = true;
    }
}

void PlainBuilder::splitPath(Pair& pair, PlainCell& cell, unsigned int centreLink, unsigned int shape) const {
    unsigned int const low = plainLinks()[centreLink][0];
    std::vector<unsigned int> leaving = {0, 0};
    for (unsigned int link = 0; link < 12; ++link) {
        bool const isAtLow = plainLinks()[link][0] == low || plainLinks()[link][1] == low;
        if (isAtLow && (info(link) & 0x300) == 0x300 && (plainMask(link) & shape) != plainMask(link)) {
            leaving.push_back(link);
        }
    }
    Plain3 const n = unit(plus(_up[leaving[leaving.size() - 1]], _up[leaving[leaving.size() - 2]]));
    Plain3 const s = unit(crossOf(n, _up[centreLink]));

    std::array<PlainDescriptor, 2> sides{PlainDescriptor(_middles), PlainDescriptor(_middles)};
    std::array<int, 2> sharedPlaces = {-1, -1};
    int loose = -1;
    for (unsigned int k = 0; k < pair.vertices.size(); ++k) {
        unsigned int const link = pair.vertices.links[k];
        double const d = dotOf(s, pair.vertices.normal(k));
        bool const isOnPlane = std::fabs(d) <= double{1e-6F};
        if (isOnPlane && (plainMask(link) & plainMask(centreLink)) == 0) {
            loose = static_cast<int>(k);
            continue;
        }
        for (std::size_t side = 0; side < 2; ++side) {
            if (isOnPlane && (info(link) & 2) != 0) {
                sharedPlaces[side] = static_cast<int>(sides[side].size());
            }
            if (isOnPlane || (d > 0) == (side == 0)) {
                sides[side].add(link, pair.vertices.normal(k));
            }
        }
    }
    if (sharedPlaces[0] < 0) {
        return;
    }
    if (loose >= 0) {
        auto const k = static_cast<unsigned int>(loose);
        std::size_t const smaller = sides[0].size() <= sides[1].size() ? 0 : 1;
        sides[smaller].add(pair.vertices.links[k], pair.vertices.normal(k));
        sides[smaller].arrange(0, 0, false);
        sides[1 - smaller].arrange(static_cast<unsigned int>(sharedPlaces[1 - smaller]), 0, false);
    }
    for (PlainDescriptor& side : sides) {
        side.fan = true;
        cell.polygons.push_back(side.polygon());
    }
}

void PlainBuilder::buildAroundCentre(Pair& pair, PlainCell& cell) const {
    unsigned int k = 0;
    while ((info(pair.vertices.links.at(k)) & 4) == 0) {
        ++k;
    }
    pair.vertices.arrange(k, 0, true, pair.vertices.normal(k));
    cell.polygons.push_back(pair.vertices.polygon());
}

} // namespace tamo::test
