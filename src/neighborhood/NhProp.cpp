// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CornerBits.h"

#include <tamo/neighborhood/NhProp.h>

#include <algorithm>
#include <iterator>

NhProp::NhProp()
    : _mid(getConnSize()), _dirUp(getConnSize()), _dirDown(getConnSize()), _vInfo(getConnSize()), _p0(getConnSize()),
      _p1(getConnSize()) {}

NhProp::~NhProp() = default;

bool NhProp::setupProp() {
    setupInfo();
    for (unsigned int i = 0; i < getConnSize(); ++i) {
        setupGeometry(i);
    }
    return true;
}

void NhProp::setupInfo() {
    auto const isIn = [](auto const& table, unsigned char link) {
        return std::find(std::begin(table), std::end(table), link) != std::end(table);
    };
    for (unsigned int i = 0; i < getConnSize(); ++i) {
        unsigned char const link = getConn(i);
        if (isIn(_edge, link)) {
            _vInfo[i] = kEdgeInfo;
        } else if (isIn(_fDiag, link)) {
            _vInfo[i] = kFaceDiagonalInfo;
        } else if (isIn(_sDiag, link)) {
            _vInfo[i] = kSpaceDiagonalInfo;
        }
    }
    // A derived class may keep other numbers in these lists; only those of links count.
    auto const mark = [this](std::vector<unsigned int> const& links, unsigned int bit) {
        for (unsigned int const i : links) {
            if (i < _vInfo.size()) {
                _vInfo[i] |= bit;
            }
        }
    };
    mark(_bgConn, kBackgroundInfo);
    mark(_fgConn, kForegroundInfo);
}

void NhProp::setupGeometry(unsigned int link) {
    unsigned char const corners = getConn(link);
    _p0[link] = static_cast<unsigned char>(tamo::nextCorner(corners, 0));
    _p1[link] = static_cast<unsigned char>(tamo::nextCorner(corners, _p0[link] + 1U));
    GLConstAccess3f const& lower = _vertices->vertex(_p0[link]);
    GLConstAccess3f const& higher = _vertices->vertex(_p1[link]);
    _mid[link] = (lower + higher) * 0.5F;
    _dirUp[link] = higher - lower;
    _dirDown[link] = lower - higher;
    // Edges have unit length already.
    if ((_vInfo[link] & (kFaceDiagonalInfo | kSpaceDiagonalInfo)) != 0) {
        _dirUp[link].normalize();
        _dirDown[link].normalize();
    }
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
