// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/opengl/GlCallRecorder.h"

#include <utility>

namespace {

std::vector<tamo::test::GlCall> calls;
float const* interleaved = nullptr;

void note(char const* name, std::vector<unsigned int> arguments, std::vector<float> floats = {}) {
    calls.push_back({name, std::move(arguments), std::move(floats)});
}

unsigned int number(int value) { return static_cast<unsigned int>(value); }

} // namespace

// The library is bound to these: what the program itself defines comes before any other library's.
extern "C" {
GLAPI void GLAPIENTRY glNewList(GLuint list, GLenum mode) { note("glNewList", {list, mode}); }

GLAPI void GLAPIENTRY glEndList() { note("glEndList", {}); }

GLAPI void GLAPIENTRY glEnableClientState(GLenum array) { note("glEnableClientState", {array}); }

GLAPI void GLAPIENTRY glDisableClientState(GLenum array) { note("glDisableClientState", {array}); }

GLAPI void GLAPIENTRY glColor3fv(GLfloat const* color) { note("glColor3fv", {}, {color[0], color[1], color[2]}); }

GLAPI void GLAPIENTRY glInterleavedArrays(GLenum format, GLsizei stride, GLvoid const* pointer) {
    note("glInterleavedArrays", {format, number(stride)});
    interleaved = static_cast<float const*>(pointer);
}

GLAPI void GLAPIENTRY glDrawArrays(GLenum mode, GLint first, GLsizei count) {
    constexpr std::ptrdiff_t kFloatsPerVertex = 6;
    note("glDrawArrays", {mode, number(first), number(count)}, {interleaved, interleaved + kFloatsPerVertex * count});
}
}

namespace tamo::test {

std::vector<GlCall> takeGlCalls() { return std::exchange(calls, {}); }

} // namespace tamo::test
