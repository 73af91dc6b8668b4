// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/neighborhood/Neighborhood.h>

#include <string>
#include <vector>

namespace tamo::test {

/// Opens the protected members.
class OpenNeighborhood : public Neighborhood {
  public:
    using Neighborhood::_edge;
    using Neighborhood::_edgeSize;
    using Neighborhood::_fDiag;
    using Neighborhood::_fDiagSize;
    using Neighborhood::_sDiag;
    using Neighborhood::_sDiagSize;
    using Neighborhood::_vertices;
    using Neighborhood::connect;
    using Neighborhood::isCrossing;
    using Neighborhood::operator[];
};

using Links = std::vector<unsigned int>;

inline Links linksOf(Neighborhood const& n) {
    Links links;
    for (unsigned int i = 0; i < n.getConnSize(); ++i) {
        links.push_back(n.getConn(i));
    }
    return links;
}

inline Links foregroundOf(Neighborhood const& n) {
    Links links;
    for (unsigned int i = 0; i < n.getFgConnSize(); ++i) {
        links.push_back(n.getFgConn(i));
    }
    return links;
}

inline Links backgroundOf(Neighborhood const& n) {
    Links links;
    for (unsigned int i = 0; i < n.getBgConnSize(); ++i) {
        links.push_back(n.getBgConn(i));
    }
    return links;
}

inline Links sharedOf(Neighborhood const& n) {
    Links numbers;
    for (unsigned int i = 0; i < n.getConnIdxSize(); ++i) {
        numbers.push_back(n.getConnIdx(i));
    }
    return numbers;
}

/// Runs `action` and returns the text of the `TamoException` that it throws, or "nothing thrown".
template <typename Action> std::string messageOf(Action action) {
    try {
        action();
    } catch (TamoException const& exception) {
        return exception.what();
    }
    return "nothing thrown";
}

} // namespace tamo::test
