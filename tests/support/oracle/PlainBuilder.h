// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/PlainAdjacency.h"
#include "support/oracle/PlainDescriptor.h"

#include <array>
#include <vector>

namespace tamo::test {

/// What the slow builder makes of one configuration.
struct PlainCell {
    std::vector<PlainPolygon> polygons;
    /// How many pairs of components have no link between them.
    unsigned int pairsWithoutLink = 0;
    /// Whether a pair was met whose triangles the geometry settles and no fixed rule: a bent path of three corners, or
    /// a path of three edges between links that are edges alone. Its polygons are left out.
    bool isOpen = false;
};

/// Builds surfaces by cases of adjacency, one plain function a case.
class PlainBuilder {
  public:
    /// Builds for the union `config` of link tables. Where two of its tables share a link, the case table stays as it
    /// was: `hadTable` says whether there was one.
    explicit PlainBuilder(unsigned int config, bool hadTable = true);

    [[nodiscard]] PlainCell build(unsigned int configuration, bool recomputeNormals) const;
    /// Builds between two components as if some of the links between them were not there. Throws a standard exception
    /// where too few vertices are left for the case.
    [[nodiscard]] PlainCell buildWithout(unsigned int fg, unsigned int bg,
                                         std::vector<unsigned int> const& missingLinks) const;
    [[nodiscard]] PlainAdjacency const& adjacency() const { return _adjacency; }

  private:
    struct Pair;

    [[nodiscard]] unsigned int info(unsigned int link) const { return _info.at(link); }
    void collect(Pair& pair) const;
    void buildPair(Pair& pair, PlainCell& cell) const;
    void dispatch(unsigned int code, Pair& pair, PlainCell& cell) const;
    void buildFromKind(Pair& pair, PlainCell& cell, unsigned int kind) const;
    void buildFaceDiagonal(Pair& pair, PlainCell& cell) const;
    void buildSpaceDiagonal(Pair& pair, PlainCell& cell) const;
    void buildCorner(Pair& pair, PlainCell& cell) const;
    void buildPath(Pair& pair, PlainCell& cell) const;
    void splitPath(Pair& pair, PlainCell& cell, unsigned int centreLink, unsigned int shape) const;
    void buildAroundCentre(Pair& pair, PlainCell& cell) const;

    PlainAdjacency _adjacency;
    bool _hasTable;
    std::array<unsigned int, 28> _info{};
    std::vector<Plain3> _middles;
    std::vector<Plain3> _up;
    std::vector<Plain3> _down;
};

} // namespace tamo::test
