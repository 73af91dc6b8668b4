// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/GLPolygonConsumer.h>

#include <GL/gl.h>

namespace {

void draw(GLPolygon const& polygon) {
    glInterleavedArrays(GL_N3F_V3F, 0, polygon.vData(0));
    glDrawArrays(static_cast<GLenum>(polygon.type()), 0, static_cast<GLsizei>(polygon.size()));
}

} // namespace

GLPolygonConsumer::GLPolygonConsumer(int list) : _list(list) { glNewList(static_cast<GLuint>(list), GL_COMPILE); }

GLPolygonConsumer::~GLPolygonConsumer() = default;

void GLPolygonConsumer::setList(int list) {
    glNewList(static_cast<GLuint>(list), GL_COMPILE);
    _list = list;
}

void GLPolygonConsumer::start() {
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
}

void GLPolygonConsumer::finish() {
    glEndList();
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
}

void GLPolygonConsumer::fetch(GLObject& object, GLCoord3f const& offset) {
    for (GLPolygon const* polygon : object) {
        draw(GLPolygon(*polygon, offset));
    }
}

void GLPolygonConsumer::fetch(GLObject& object) {
    if (_list == 0) {
        return;
    }
    for (GLPolygon const* polygon : object) {
        glColor3fv(&polygon->color().x);
        draw(*polygon);
    }
}
