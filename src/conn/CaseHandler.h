// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../neighborhood/CornerBits.h"
#include "../objects/Configurations.h"
#include "../objects/appendOwned.h"

#include <tamo/conn/GLPolygonDesc.h>
#include <tamo/neighborhood/NhProp.h>
#include <tamo/objects/GLObjectList.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace tamo {

/// What stands for a vertex where none is found.
constexpr unsigned char kNoVertex = 255;

/// Returns whether all corners of a link belong to the set `corners`.
constexpr bool isInside(unsigned int link, unsigned int corners) { return (link & ~corners) == 0; }

/// Returns the lowest corner of the set `corners` that is not below `from`, or 0 where there is none.
constexpr unsigned int cornerOrZero(unsigned int corners, unsigned int from) {
    return nextCorner(corners, from) % kCornerCount;
}

/// Arranges the vertices from `first` on, about their mean normal, and gives their polygon to the object.
inline void appendArranged(GLObject& object, GLPolygonDesc& desc, unsigned char first, bool close) {
    desc.arrange(first, 0, close);
    appendOwned(object, desc.createPolygon());
}

/// Returns the first vertex of the descriptor that `accept(vertex)` takes, or `none`.
template <typename Accept>
unsigned char firstVertex(GLPolygonDesc const& desc, unsigned char none, Accept const& accept) {
    for (unsigned char k = 0; k < desc.count; ++k) {
        if (accept(k)) {
            return k;
        }
    }
    return none;
}

/// Returns the first vertex on a link of the type `type`, an information bit, or `none`.
inline unsigned char findVertexOfType(NhProp const& links, GLPolygonDesc const& desc, unsigned int type,
                                      unsigned char none) {
    return firstVertex(desc, none, [&](unsigned char k) { return (links.getVInfo(desc.conn[k]) & type) != 0; });
}

/// Returns the numbers of the last `count` links that `accept(link)` takes, the newest first; `none` stands in where
/// there are fewer.
template <std::size_t count, typename Accept>
std::array<unsigned int, count> lastLinks(NhProp const& links, unsigned int none, Accept const& accept) {
    std::array<unsigned int, count> found;
    found.fill(none);
    for (unsigned int link = 0; link < links.getConnSize(); ++link) {
        if (accept(link)) {
            std::copy_backward(found.begin(), found.end() - 1, found.end());
            found[0] = link;
        }
    }
    return found;
}

/// Returns whether the information word of a link has all bits of `info`.
inline bool hasInfo(NhProp const& links, unsigned int link, unsigned int info) {
    return (links.getVInfo(link) & info) == info;
}

} // namespace tamo
