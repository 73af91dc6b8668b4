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

    void setSystem(Neighborhood::NHConfig config) { conn.setupConn(config); }

    /// Fills the descriptor with the links between two components, as the builder does.
    ConnArguments collect(unsigned char fg, unsigned char bg, bool inverted) {
        ConnArguments arguments;
        arguments.info = GLConnAccess::collect(conn, desc, fg, bg);
        arguments.fg = fg;
        arguments.bg = bg;
        arguments.inverted = inverted;
        arguments.hasCentre = (arguments.info & 4) != 0;
        desc.fan = true;
        desc.strip = false;
        return arguments;
    }

    void add(Links const& links) {
        for (unsigned int const link : links) {
            desc.addVertex(static_cast<unsigned char>(link), conn.getNormal(link, true));
        }
    }

    bool handle(ConnHandler handler, ConnArguments const& arguments) {
        TextCapture const capture(std::cerr);
        bool const result = GLConnAccess::handle(conn, handler, object, desc, arguments);
        errors = capture.text();
        return result;
    }

    [[nodiscard]] Links order() const { return {desc.conn.begin(), desc.conn.begin() + desc.count}; }

    GLConn conn;
    GLPolygonDesc desc{GLConnAccess::midpoints(conn), 28};
    GLObject object;
    std::string errors;
};

} // namespace tamo::test
