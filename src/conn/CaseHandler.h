// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../neighborhood/CornerBits.h"
#include "../objects/Configurations.h"
#include "../objects/appendOwned.h"

#include <tamo/conn/GLPolygonDesc.h>
namespace tamo {

/// What stands for a vertex where none is found.
constexpr unsigned char kNoVertex = 255;

/// Tells whether all corners of a link belong to the set `corners`.
constexpr bool isInside(unsigned int link, unsigned int corners) { return (link & ~corners) == 0; }

/// Returns the lowest corner of the set `corners` that is not below `from`, or 0 where there is none.
constexpr unsigned int cornerOrZero(unsigned int corners, unsigned int from) {
    return nextCorner(corners, from) % kCornerCount;
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
