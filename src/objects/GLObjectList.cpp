// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "appendOwned.h"

#include <tamo/objects/GLObjectList.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <new>

template class Vb::PointerContainer<std::vector<GLPolygon*>>;
template class Vb::PointerContainer<std::vector<GLObject*>>;

GLObject::GLObject() = default;

GLObject::GLObject(GLObject const& other, float scale) {
    // Room for all first: appending then cannot fail, and a failure in the loop is the polygon's own.
    reserve(other.size());
    for (GLPolygon const* polygon : other) {
        if (polygon == nullptr) {
            push_back(nullptr);
            continue;
        }
        try {
            tamo::appendOwned(*this, std::make_unique<GLPolygon>(*polygon, scale));
        } catch (std::bad_alloc const&) {
            std::cerr << "Polygon could not be created" << std::endl;
        }
    }
}

bool GLObject::replace(GLPolygon* oldPolygon, GLPolygon* newPolygon) {
    auto const slot = std::find(begin(), end(), oldPolygon);
    if (slot == end()) {
        return false;
    }
    // The object must not keep what it has deleted.
    if (oldPolygon != newPolygon) {
        delete oldPolygon;
        *slot = newPolygon;
    }
    return true;
}

bool GLObject::erase(GLPolygon* polygon) {
    // In two statements: erasing moves the end that the result is compared with.
    auto const next = erase(std::find(begin(), end(), polygon));
    return next != end();
}

GLObjectList::GLObjectList() = default;

// The base's own copy constructor would share the objects.
// NOLINTNEXTLINE(bugprone-copy-constructor-init)
GLObjectList::GLObjectList(GLObjectList const& other, float scale) : PointerContainer() {
    resize(other.size());
    for (unsigned int i = 0; i < size(); ++i) {
        try {
            (*this)[i] = new GLObject(*other[i], scale);
        } catch (std::bad_alloc const&) {
            // The slot stays null: whoever asked for the copy decides what a partial one is worth.
        }
    }
}

GLObjectList& GLObjectList::operator=(GLObjectList const& other) = default;
