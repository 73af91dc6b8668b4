// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/GLConnAccess.h"
#include "support/TextCapture.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>
#include <vector>

namespace tamo::test {

/// Calls single handlers of a builder with a descriptor of any links.
class HandlerTest : public testing::Test {
  protected:
    using Links = std::vector<unsigned int>;

    void setSystem(Neighborhood::NHConfig config) { _conn.setupConn(config); }

    /// Fills the descriptor with the links between two components, as the builder does.
    ConnArguments collect(unsigned char fg, unsigned char bg, bool inverted) {
        ConnArguments arguments;
        arguments.info = GLConnAccess::collect(_conn, _desc, fg, bg);
        arguments.fg = fg;
        arguments.bg = bg;
        arguments.inverted = inverted;
        arguments.hasCentre = (arguments.info & 4) != 0;
        _desc.fan = true;
        _desc.strip = false;
        return arguments;
    }

    void add(Links const& links) {
        for (unsigned int const link : links) {
            _desc.addVertex(static_cast<unsigned char>(link), _conn.getNormal(link, true));
        }
    }

    bool handle(ConnHandler handler, ConnArguments const& arguments) {
        TextCapture const capture(std::cerr);
        bool const result = GLConnAccess::handle(_conn, handler, _object, _desc, arguments);
        _errors = capture.text();
        return result;
    }

    [[nodiscard]] Links order() const { return {_desc.conn.begin(), _desc.conn.begin() + _desc.count}; }

    GLConn _conn;
    GLPolygonDesc _desc{GLConnAccess::midpoints(_conn), 28};
    GLObject _object;
    std::string _errors;
};

} // namespace tamo::test
