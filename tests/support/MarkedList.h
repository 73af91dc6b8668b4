// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/objects/GLObjectList.h>

#include <memory>

namespace tamo::test {

/// Fills `list` with `slots` objects of one polygon each, a triangle in slot 0, and from slot to slot
/// `moreVertices` more; its normals carry the number of the slot, which scaling leaves alone, and its third vertex is
/// (1, 0.5, 0).
inline void makeMarkedList(GLObjectList& list, unsigned int slots = 256, unsigned int moreVertices = 0) {
    list.clear();
    for (unsigned int c = 0; c < slots; ++c) {
        auto polygon = std::make_unique<GLPolygon>(3 + c * moreVertices);
        polygon->setNormals(GLVec3f(static_cast<float>(c), 0.0F, 0.0F));
        polygon->vertex(2) = GLVec3f(1.0F, 0.5F, 0.0F);
        polygon->color() = GLVec3f(1.0F, 0.0F, 0.0F);
        auto object = std::make_unique<GLObject>();
        object->push_back(polygon.release());
        list.push_back(object.release());
    }
}

/// Returns the slot that `object`, or what it was copied from, has in its marked list.
inline unsigned int markOf(GLObject const& object) { return static_cast<unsigned int>(*object[0]->vData(0)); }

} // namespace tamo::test
