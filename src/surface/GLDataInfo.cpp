// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/GLDataInfo.h>

GLDataInfo::GLDataInfo() = default;

GLDataInfo::GLDataInfo(GLtVec3<int> const& offset, GLtVec3<int> const& size, unsigned int step, unsigned int triangles,
                       unsigned int vertices, unsigned int primitives)
    : _offset(offset), _size(size), _step(step), _triangles(triangles), _vertices(vertices), _primitives(primitives) {}

GLtVec3<int>& GLDataInfo::offset() { return _offset; }
GLtVec3<int> const& GLDataInfo::offset() const { return _offset; }
GLtVec3<int>& GLDataInfo::size() { return _size; }
GLtVec3<int> const& GLDataInfo::size() const { return _size; }
unsigned int& GLDataInfo::step() { return _step; }
unsigned int GLDataInfo::step() const { return _step; }
std::size_t& GLDataInfo::triangles() { return _triangles; }
std::size_t GLDataInfo::triangles() const { return _triangles; }
std::size_t& GLDataInfo::vertices() { return _vertices; }
std::size_t GLDataInfo::vertices() const { return _vertices; }
std::size_t& GLDataInfo::primitives() { return _primitives; }
std::size_t GLDataInfo::primitives() const { return _primitives; }

void GLDataInfo::reset() { *this = GLDataInfo(); }
