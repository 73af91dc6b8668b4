// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/PlainPolygon.h"

#include <array>
#include <vector>

namespace tamo::test {

/// A pair of cell corners, the lower number first.
using CornerPair = std::array<unsigned int, 2>;

/// Returns the 28 links of the cell by their numbers.
std::array<CornerPair, 28> const& plainLinks();
/// Returns 1 for a cube edge, 2 for a face diagonal, 4 for a space diagonal.
unsigned int plainLinkType(unsigned int link);
Plain3 plainCorner(unsigned int corner);
/// Returns the byte with the link's two bits.
unsigned int plainMask(unsigned int link);

/// An adjacency system, worked out from the meaning of its bits.
struct PlainAdjacency {
    explicit PlainAdjacency(unsigned int config);

    [[nodiscard]] bool isForeground(unsigned int link) const;
    [[nodiscard]] bool isBackground(unsigned int link) const;

    /// Link numbers in the order of connection.
    std::vector<unsigned int> foreground;
    /// Link numbers, ascending: what crosses no foreground link.
    std::vector<unsigned int> background;
    /// False where two tables share a link; the lists then hold what came before it.
    bool isComplete = true;

  private:
    bool connect(CornerPair const& pair);
};

/// Finds the pieces of a set of corners by walking along the links; ordered by lowest corner.
std::vector<unsigned int> plainComponents(unsigned int corners, std::vector<unsigned int> const& links);

/// Returns the case word of a set of corners, derived from the distances between them.
unsigned int plainCaseWord(unsigned int corners);

} // namespace tamo::test
