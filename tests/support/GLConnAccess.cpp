// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/GLConnAccess.h"

#include "support/PrivateAccess.h"

namespace tamo::test {

using Handler = bool (GLConn::*)(GLObject*, GLPolygonDesc&, unsigned int, unsigned char, unsigned char, bool, bool);

struct ConnHandleDefault {
    using Type = Handler;
    friend Type access(ConnHandleDefault /*tag*/);
};
struct ConnHandleEdge {
    using Type = Handler;
    friend Type access(ConnHandleEdge /*tag*/);
};
struct ConnHandleFaceDiagonal {
    using Type = Handler;
    friend Type access(ConnHandleFaceDiagonal /*tag*/);
};
struct ConnHandleSpaceDiagonal {
    using Type = Handler;
    friend Type access(ConnHandleSpaceDiagonal /*tag*/);
};
struct ConnHandlePixel {
    using Type = Handler;
    friend Type access(ConnHandlePixel /*tag*/);
};
struct ConnHandleCase7 {
    using Type = Handler;
    friend Type access(ConnHandleCase7 /*tag*/);
};
struct ConnHandleCase25 {
    using Type = Handler;
    friend Type access(ConnHandleCase25 /*tag*/);
};
struct ConnHandleCase27 {
    using Type = Handler;
    friend Type access(ConnHandleCase27 /*tag*/);
};
struct ConnHandleCase41 {
    using Type = Handler;
    friend Type access(ConnHandleCase41 /*tag*/);
};
struct ConnDispatch {
    using Type = bool (GLConn::*)(GLObject*, GLPolygonDesc&, unsigned int, unsigned char, unsigned char);
    friend Type access(ConnDispatch /*tag*/);
};
struct ConnCollect {
    using Type = unsigned int (GLConn::*)(GLPolygonDesc&, unsigned char, unsigned char);
    friend Type access(ConnCollect /*tag*/);
};
struct ConnCaseLut {
    using Type = std::vector<unsigned int> GLConn::*;
    friend Type access(ConnCaseLut /*tag*/);
};
struct ConnPrintCaseLut {
    using Type = void (GLConn::*)(int);
    friend Type access(ConnPrintCaseLut /*tag*/);
};
struct ConnMidpoints {
    using Type = std::vector<GLVec3f> NhProp::*;
    friend Type access(ConnMidpoints /*tag*/);
};
struct ConnEpsilon {
    using Type = float const*;
    friend Type access(ConnEpsilon /*tag*/);
};
template <unsigned int N> using ShapeList = unsigned char const (*)[N];
struct ConnCase7 {
    using Type = ShapeList<24>;
    friend Type access(ConnCase7 /*tag*/);
};
struct ConnCase25 {
    using Type = ShapeList<24>;
    friend Type access(ConnCase25 /*tag*/);
};
struct ConnCase27 {
    using Type = ShapeList<24>;
    friend Type access(ConnCase27 /*tag*/);
};
struct ConnCase41 {
    using Type = ShapeList<3>;
    friend Type access(ConnCase41 /*tag*/);
};
struct ConnCase75 {
    using Type = ShapeList<9>;
    friend Type access(ConnCase75 /*tag*/);
};

template struct PrivateAccess<ConnHandleDefault, &GLConn::handleDefault>;
template struct PrivateAccess<ConnHandleEdge, &GLConn::handleCEdge>;
template struct PrivateAccess<ConnHandleFaceDiagonal, &GLConn::handleCFDiag>;
template struct PrivateAccess<ConnHandleSpaceDiagonal, &GLConn::handleCSDiag>;
template struct PrivateAccess<ConnHandlePixel, &GLConn::handlePixel>;
template struct PrivateAccess<ConnHandleCase7, &GLConn::handleC7>;
template struct PrivateAccess<ConnHandleCase25, &GLConn::handleC25>;
template struct PrivateAccess<ConnHandleCase27, &GLConn::handleC27>;
template struct PrivateAccess<ConnHandleCase41, &GLConn::handleC41>;
template struct PrivateAccess<ConnDispatch, &GLConn::sortCCW>;
template struct PrivateAccess<ConnCollect, &GLConn::getPolygonDesc>;
template struct PrivateAccess<ConnCaseLut, &GLConn::_caseLut>;
template struct PrivateAccess<ConnPrintCaseLut, &GLConn::printCaseLut>;
template struct PrivateAccess<ConnMidpoints, &NhProp::_mid>;
template struct PrivateAccess<ConnEpsilon, &GLConn::_epsilon>;
template struct PrivateAccess<ConnCase7, &GLConn::_case7>;
template struct PrivateAccess<ConnCase25, &GLConn::_case25>;
template struct PrivateAccess<ConnCase27, &GLConn::_case27>;
template struct PrivateAccess<ConnCase41, &GLConn::_case41>;
template struct PrivateAccess<ConnCase75, &GLConn::_case75>;

bool GLConnAccess::handle(GLConn& conn, ConnHandler handler, GLObject& object, GLPolygonDesc& desc,
                          ConnArguments const& arguments) {
    Handler const all[] = {
        access(ConnHandleDefault()),       access(ConnHandleEdge()),   access(ConnHandleFaceDiagonal()),
        access(ConnHandleSpaceDiagonal()), access(ConnHandlePixel()),  access(ConnHandleCase7()),
        access(ConnHandleCase25()),        access(ConnHandleCase27()), access(ConnHandleCase41())};
    return (conn.*all[static_cast<int>(handler)])(&object, desc, arguments.info, arguments.fg, arguments.bg,
                                                  arguments.inverted, arguments.hasCentre);
}

bool GLConnAccess::dispatch(GLConn& conn, GLObject& object, GLPolygonDesc& desc, ConnArguments const& arguments) {
    return (conn.*access(ConnDispatch()))(&object, desc, arguments.info, arguments.fg, arguments.bg);
}

unsigned int GLConnAccess::collect(GLConn& conn, GLPolygonDesc& desc, unsigned char fg, unsigned char bg) {
    return (conn.*access(ConnCollect()))(desc, fg, bg);
}

std::vector<unsigned int>& GLConnAccess::caseLut(GLConn& conn) { return conn.*access(ConnCaseLut()); }

void GLConnAccess::printCaseLut(GLConn& conn, int i) { (conn.*access(ConnPrintCaseLut()))(i); }

std::vector<GLVec3f> const& GLConnAccess::midpoints(GLConn const& conn) { return conn.*access(ConnMidpoints()); }

float GLConnAccess::epsilon() { return *access(ConnEpsilon()); }

std::vector<unsigned int> GLConnAccess::shapes(unsigned int code) {
    auto const listOf = [](auto const* shapes) {
        return std::vector<unsigned int>(std::begin(*shapes), std::end(*shapes));
    };
    switch (code) {
    case 16:
        return listOf(access(ConnCase7()));
    case 32:
        return listOf(access(ConnCase25()));
    case 64:
        return listOf(access(ConnCase27()));
    default:
        std::vector<unsigned int> both = listOf(access(ConnCase41()));
        std::vector<unsigned int> const larger = listOf(access(ConnCase75()));
        both.insert(both.end(), larger.begin(), larger.end());
        return both;
    }
}

} // namespace tamo::test
