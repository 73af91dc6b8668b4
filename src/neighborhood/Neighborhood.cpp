// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CornerBits.h"
#include "LinkTables.h"

#include <tamo/neighborhood/Neighborhood.h>

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <iostream>
#include <iterator>

// The sizes are symbols of the library like the tables; as inline variables they would be unique ones.
unsigned int const Neighborhood::_edgeSize;
unsigned int const Neighborhood::_fDiagSize;
unsigned int const Neighborhood::_sDiagSize;
unsigned int const Neighborhood::_n14iDiagSize;
unsigned int const Neighborhood::_n14iiDiagSize;

// The order of every table is significant: it numbers the links, and every list of links follows it. Face diagonals
// come in crossing pairs, face by face: z = 0, z = 1, y = 1, y = 0, x = 1, x = 0.
unsigned char const Neighborhood::_edge[_edgeSize] = {0x03, 0x0a, 0x0c, 0x05, 0x11, 0x22,
                                                      0x88, 0x44, 0x30, 0x50, 0xa0, 0xc0};
unsigned char const Neighborhood::_fDiag[_fDiagSize] = {0x06, 0x09, 0x60, 0x90, 0x84, 0x48,
                                                        0x12, 0x21, 0x82, 0x28, 0x41, 0x14};
unsigned char const Neighborhood::_sDiag[_sDiagSize] = {0x81, 0x42, 0x24, 0x18};
// The space diagonal 0-7 with the face diagonals that end in corner 0 or 7, one per face.
unsigned char const Neighborhood::_n14iDiag[_n14iDiagSize] = {0x81, 0x41, 0x82, 0x21, 0x84, 0x09, 0x90};
// The same, with the diagonals of the faces x = 0 and x = 1 exchanged for those that cross them.
unsigned char const Neighborhood::_n14iiDiag[_n14iiDiagSize] = {0x81, 0x14, 0x28, 0x21, 0x84, 0x09, 0x90};

char const* Neighborhood::_nhNames[7] = {"N6", "N8", "N12", "N14I", "N14II", "N26", "invalid"};

namespace {

constexpr std::size_t kLinkCount = 28;

template <typename List> auto checkedAt(List const& list, unsigned int i) {
    if (i >= list.size()) {
        throw TamoException("Neighborhood::getConn invalid Index");
    }
    return list[i];
}

} // namespace

Neighborhood::Neighborhood() : _vertices(std::make_shared<GLUnitCube const>()), _config(NHConfig{}) {
    _fgConn.reserve(kLinkCount);
    _bgConn.reserve(kLinkCount);
    _conn.reserve(kLinkCount);
    _connIdx.reserve(kLinkCount);
    _conn.insert(_conn.end(), std::begin(_edge), std::end(_edge));
    _conn.insert(_conn.end(), std::begin(_fDiag), std::end(_fDiag));
    _conn.insert(_conn.end(), std::begin(_sDiag), std::end(_sDiag));
}

void Neighborhood::clear() {
    _fgConn.clear();
    _bgConn.clear();
    _bgConn.reserve(kLinkCount);
    for (unsigned int i = 0; i < kLinkCount; ++i) {
        _bgConn.push_back(i);
    }
}

bool Neighborhood::connect(unsigned char link) {
    // Both texts name the derived class for which links are connected; callers compare them.
    if (std::bitset<8>(link).count() != 2) {
        throw TamoException("GLConn::connect ERROR:invalid connection");
    }
    auto const position = static_cast<unsigned int>(std::find(_conn.begin(), _conn.end(), link) - _conn.begin());
    if (std::find(_fgConn.begin(), _fgConn.end(), position) != _fgConn.end()) {
        throw TamoException("GLConn::connect ERROR:connection already defined");
    }
    _fgConn.push_back(position);
    auto const crossed = [this, position](unsigned int b) {
        return isCrossing(static_cast<unsigned char>(position), static_cast<unsigned char>(b));
    };
    _bgConn.erase(std::remove_if(_bgConn.begin(), _bgConn.end(), crossed), _bgConn.end());
    return true;
}

bool Neighborhood::isCrossing(unsigned char a, unsigned char b) const {
    if (a == b) {
        return false;
    }
    auto const midpoint = [this](unsigned char link) {
        tamo::LinkEnds const ends = tamo::endsOf(_conn[link]);
        GLConstAccess3f const& lower = _vertices->vertex(ends.lower);
        return GLVec3f(lower) + (_vertices->vertex(ends.higher) - lower) * 0.5F;
    };
    return midpoint(a) == midpoint(b);
}

bool Neighborhood::setupNeighborhood(NHConfig config) {
    clear();
    for (tamo::LinkTable const& table : tamo::LinkTables::all()) {
        if ((config & table.bit) != 0) {
            std::for_each(table.begin(), table.end(), [this](unsigned char link) { connect(link); });
        }
    }
    _config = config;
    setupConnect();
    return true;
}

int Neighborhood::setupConnect() {
    _connIdx.clear();
    std::copy_if(_bgConn.begin(), _bgConn.end(), std::back_inserter(_connIdx),
                 [this](unsigned int b) { return std::find(_fgConn.begin(), _fgConn.end(), b) != _fgConn.end(); });
    return static_cast<int>(_connIdx.size());
}

char const* Neighborhood::getName() const {
    switch (_config) {
    case N6:
        return _nhNames[0];
    case N8:
        return _nhNames[1];
    case N12:
        return _nhNames[2];
    case N14I:
        return _nhNames[3];
    case N14II:
        return _nhNames[4];
    case N26:
        return _nhNames[5];
    }
    return _nhNames[6];
}

unsigned int Neighborhood::getConnSize() const { return static_cast<unsigned int>(_conn.size()); }
unsigned int Neighborhood::getFgConnSize() const { return static_cast<unsigned int>(_fgConn.size()); }
unsigned int Neighborhood::getBgConnSize() const { return static_cast<unsigned int>(_bgConn.size()); }
unsigned int Neighborhood::getConnIdxSize() const { return static_cast<unsigned int>(_connIdx.size()); }

unsigned char Neighborhood::getConn(unsigned int i) const { return checkedAt(_conn, i); }
unsigned char Neighborhood::getFgConn(unsigned int i) const { return _conn[checkedAt(_fgConn, i)]; }
unsigned char Neighborhood::getBgConn(unsigned int i) const { return _conn[checkedAt(_bgConn, i)]; }
unsigned int Neighborhood::getConnIdx(unsigned int i) const { return checkedAt(_connIdx, i); }

unsigned char Neighborhood::operator[](int i) const { return _conn[static_cast<std::size_t>(i)]; }

void Neighborhood::show(unsigned char conf) const {
    for (unsigned int bit = 8; bit-- > 0;) {
        std::cout << ((conf >> bit & 1U) != 0 ? '*' : '0');
    }
    std::cout << std::endl;
}
