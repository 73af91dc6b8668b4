// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/geometry/GLPolygon.h>
#include <tamo/objects/PointerContainer.h>

#include <vector>

class GLObject;

// The library holds the only code of these two containers.
extern template class TAMO_EXPORT Vb::PointerContainer<std::vector<GLPolygon*>>;
extern template class TAMO_EXPORT Vb::PointerContainer<std::vector<GLObject*>>;

/// Owns the polygons of one cell configuration, in unit-cell coordinates and in drawing order.
///
/// Copying shares the polygons (see `Vb::PointerContainer`); the scaling constructor makes a deep copy. An object that
/// is counted or drawn must hold no null polygon.
class TAMO_EXPORT GLObject : public Vb::PointerContainer<std::vector<GLPolygon*>> {
  public:
    /// Holds no polygons. Never throws.
    GLObject();
    /// Copies every polygon of `other` with its positions multiplied by `scale`; a null slot stays null. A polygon that
    /// cannot be allocated is left out, with the line "Polygon could not be created" on standard error. Throws
    /// `std::bad_alloc` where the slots cannot be allocated.
    GLObject(GLObject const& other, float scale);

    using Vb::PointerContainer<std::vector<GLPolygon*>>::erase;

    /// Puts `newPolygon`, which may be null, into the first slot that holds `oldPolygon`, and deletes `oldPolygon`
    /// unless the two are the same. A null `oldPolygon` means the first null slot. Returns false, changing nothing and
    /// taking no ownership, where no slot holds `oldPolygon`.
    bool replace(GLPolygon* oldPolygon, GLPolygon* newPolygon);
    /// Deletes `polygon`, which must be one of this object's, and removes its slot. Returns whether another slot now
    /// stands in that place: false where it was the last.
    bool erase(GLPolygon* polygon);
};

/// Owns one `GLObject` per cell configuration; a complete list has 256 slots, none of them null.
///
/// Bit dx + 2 dy + 4 dz of the slot number is the value of the cell corner (dx, dy, dz). Assignment shares the objects
/// (see `Vb::PointerContainer`); copy construction is deep.
class TAMO_EXPORT GLObjectList : public Vb::PointerContainer<std::vector<GLObject*>> {
  public:
    /// Makes no slots. Never throws.
    GLObjectList();
    /// Copies every object of `other`, none of which may be null, with positions multiplied by `scale`. An object that
    /// cannot be allocated, or whose slots cannot, leaves its slot null; a polygon that cannot be allocated is left
    /// out, with the line as above. Throws `std::bad_alloc` where the list's own slots cannot be allocated.
    GLObjectList(GLObjectList const& other, float scale = 1.0F);
    /// Copies the pointers; the objects that this list held are not deleted. Throws `std::bad_alloc`.
    GLObjectList& operator=(GLObjectList const& other);
};
