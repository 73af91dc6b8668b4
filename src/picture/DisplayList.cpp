// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DisplayList.h"

#include "PictureError.h"

#include <GL/gl.h>

#include <utility>

namespace tamo::picture {

DisplayList::DisplayList() : _name(glGenLists(1)) {
    if (_name == 0) {
        throw PictureError("OpenGL: expected room for another display list");
    }
}

// OpenGL takes no notice of the name 0.
DisplayList::~DisplayList() { glDeleteLists(_name, 1); }

DisplayList::DisplayList(DisplayList&& other) noexcept : _name(std::exchange(other._name, 0)) {}

} // namespace tamo::picture
