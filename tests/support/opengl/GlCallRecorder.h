// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <GL/gl.h>

#include <ostream>
#include <string>
#include <vector>

namespace tamo::test {

/// One call of OpenGL, with the numbers that it was given.
struct GlCall {
    std::string name;
    std::vector<unsigned int> arguments;
    /// The floats behind a pointer argument: a colour, or all vertex records that `glDrawArrays` reads.
    std::vector<float> floats;

    friend bool operator==(GlCall const& a, GlCall const& b) {
        return a.name == b.name && a.arguments == b.arguments && a.floats == b.floats;
    }
    friend std::ostream& operator<<(std::ostream& out, GlCall const& call) {
        out << call.name << "(";
        for (unsigned int const argument : call.arguments) {
            out << " " << argument;
        }
        for (float const value : call.floats) {
            out << " " << value;
        }
        return out << " )";
    }
};

/// Returns the calls since this was last asked, and forgets them.
///
/// Works in programs that link tamoGlCallRecorder, which defines the functions of OpenGL that the library calls.
std::vector<GlCall> takeGlCalls();

} // namespace tamo::test
