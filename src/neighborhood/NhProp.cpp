// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CornerBits.h"
#include "LinkTables.h"

#include <tamo/neighborhood/NhProp.h>

namespace {

// Adds `bit` to the words of the links numbered in `links`.
void mark(std::vector<unsigned int>& words, std::vector<unsigned int> const& links, unsigned int bit) {
    for (unsigned int const i : links) {
        // A derived class may keep other numbers in these lists; only those of links count.
        if (i < words.size()) {
            words[i] |= bit;
        }
    }
}

// Returns the direction from one corner to another, which has unit length already where the two share an edge.
GLVec3f directionOf(GLVec3f difference, bool isEdge) {
    if (!isEdge) {
        difference.normalize();
    }
    return difference;
}

} // namespace

NhProp::NhProp()
    : _mid(getConnSize()), _dirUp(getConnSize()), _dirDown(getConnSize()), _vInfo(getConnSize()), _p0(getConnSize()),
      _p1(getConnSize()) {}

NhProp::~NhProp() = default;

bool NhProp::setupProp() {
    for (unsigned int i = 0; i < getConnSize(); ++i) {
        _vInfo[i] = tamo::LinkTables::typeOf(getConn(i));
    }
    mark(_vInfo, _bgConn, kBackgroundInfo);
    mark(_vInfo, _fgConn, kForegroundInfo);
    for (unsigned int i = 0; i < getConnSize(); ++i) {
        tamo::LinkEnds const ends = tamo::endsOf(getConn(i));
        _p0[i] = static_cast<unsigned char>(ends.lower);
        _p1[i] = static_cast<unsigned char>(ends.higher);
        GLConstAccess3f const& lower = _vertices->vertex(ends.lower);
        GLConstAccess3f const& higher = _vertices->vertex(ends.higher);
        bool const isEdge = (_vInfo[i] & kEdgeInfo) != 0;
        _mid[i] = (lower + higher) * 0.5F;
        _dirUp[i] = directionOf(higher - lower, isEdge);
        _dirDown[i] = directionOf(lower - higher, isEdge);
    }
    return true;
}

unsigned char NhProp::getP0ofConn(unsigned int i) const {
    if (i >= _p0.size()) {
        throw "NhProp::getP0ofConn: invald index:";
    }
    return _p0[i];
}

unsigned int NhProp::getVInfo(unsigned int i) const {
    if (i >= getConnSize()) {
        throw "NhProp::getVInfo: invald index:";
    }
    return _vInfo[i];
}

GLVec3f const& NhProp::getNormal(unsigned int i, bool up) const {
    if (i >= getConnSize()) {
        throw "NhProp::getNormal: invald index:";
    }
    return up ? _dirUp[i] : _dirDown[i];
}
