// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/connectivity/GLTesselation.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <new>
#include <utility>

GLTesselation::GLTesselation(unsigned int n) { resize(n); }

GLTesselation::GLTesselation(GLTesselation const& other)
    : _count(other._count),
      _polyhedra(other._count == 0 ? nullptr : std::make_unique<GLPolyh[]>(static_cast<std::size_t>(other._count))) {
    std::copy_n(other._polyhedra.get(), _count, _polyhedra.get());
}

GLTesselation& GLTesselation::operator=(GLTesselation const& other) {
    GLTesselation copy(other);
    std::swap(_count, copy._count);
    std::swap(_polyhedra, copy._polyhedra);
    return *this;
}

GLTesselation::~GLTesselation() = default;

void GLTesselation::clear() {
    _polyhedra.reset();
    _count = 0;
}

bool GLTesselation::resize(unsigned int n) {
    clear();
    if (n == 0) {
        return false;
    }
    try {
        // A count that the signed member cannot hold can only be an allocation that would fail.
        if (n > static_cast<unsigned int>(std::numeric_limits<int>::max())) {
            throw std::bad_alloc();
        }
        _polyhedra = std::make_unique<GLPolyh[]>(n);
    } catch (std::bad_alloc const&) {
        std::cerr << "GLTesselations alloc error" << std::endl;
        return false;
    }
    _count = static_cast<int>(n);
    return true;
}

int GLTesselation::size() const { return _count; }

GLPolyh& GLTesselation::getPolyh(unsigned int i) const { return _polyhedra[i]; }

unsigned int GLTesselation::polyhSize(int i) const {
    return static_cast<unsigned int>(_polyhedra[static_cast<std::size_t>(i)].size());
}

int GLTesselation::getNook(unsigned int i, unsigned int j) const { return static_cast<int>(_polyhedra[i][j]); }

bool GLTesselation::setPolyh(unsigned int i, GLPolyh const& p) {
    if (i >= static_cast<unsigned int>(_count)) {
        return false;
    }
    _polyhedra[i] = p;
    return true;
}
