// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/conn/GLConn.h>

#include <vector>

namespace tamo::test {

/// The private handlers of `GLConn`, in the order of their case codes.
enum class ConnHandler {
    kDefault,
    kEdge,
    kFaceDiagonal,
    kSpaceDiagonal,
    kPixel,
    kCase7,
    kCase25,
    kCase27,
    kCase41,
};

/// The arguments of a handler besides the descriptor.
struct ConnArguments {
    unsigned int info = 0;
    unsigned char fg = 0;
    unsigned char bg = 0;
    bool inverted = false;
    bool hasCentre = false;
};

/// Reaches the private members of `GLConn`. Needs GLConnAccess.cpp.
struct GLConnAccess {
    static bool handle(GLConn& conn, ConnHandler handler, GLObject& object, GLPolygonDesc& desc,
                       ConnArguments const& arguments);
    static bool dispatch(GLConn& conn, GLObject& object, GLPolygonDesc& desc, ConnArguments const& arguments);
    static unsigned int collect(GLConn& conn, GLPolygonDesc& desc, unsigned char fg, unsigned char bg);
    static std::vector<unsigned int>& caseLut(GLConn& conn);
    static void printCaseLut(GLConn& conn, int i);
    static std::vector<GLVec3f> const& midpoints(GLConn const& conn);
    static float epsilon();
    /// Returns the shapes listed for the case code 16, 32, 64 or 128; the two lists of 128 follow each other.
    static std::vector<unsigned int> shapes(unsigned int code);
};

} // namespace tamo::test
