// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../neighborhood/CornerBits.h"

#include <tamo/conn/GLPolygonDesc.h>
#include <tamo/objects/GLObjectList.h>

namespace tamo {

/// The configuration byte, or corner set, of all corners.
constexpr unsigned int kFullCell = 255;

/// What stands for a vertex where none is found.
constexpr unsigned char kNoVertex = 255;

/// Tells whether all corners of a link belong to the set `corners`.
constexpr bool isInside(unsigned int link, unsigned int corners) { return (link & ~corners) == 0; }

/// Returns the lowest corner of the set `corners` that is not below `from`, or 0 where there is none.
constexpr unsigned int cornerOrZero(unsigned int corners, unsigned int from) {
    return nextCorner(corners, from) % kCornerCount;
}

/// Makes a polygon of the descriptor as it stands and gives it to the object.
inline void appendPolygon(GLObject& object, GLPolygonDesc const& desc) {
    auto polygon = desc.createPolygon();
    object.push_back(polygon.get());
    static_cast<void>(polygon.release());
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

} // namespace tamo
