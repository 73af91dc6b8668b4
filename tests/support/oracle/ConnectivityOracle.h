// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/PlainPolygon.h"

#include <tamo/connectivity/GLTesselation.h>
#include <tamo/objects/GLObjectList.h>

#include <optional>
#include <vector>

namespace tamo::test {

using PlainObject = std::vector<PlainPolygon>;
using CornerLists = std::vector<std::vector<unsigned int>>;

/// The six tetrahedra, written down once more.
CornerLists const& sixTetrahedra();
GLTesselation tesselationOf(CornerLists const& polyhedra);

/// Cuts the polyhedra in one configuration; merges the polygons where `reduce` is set.
PlainObject wrapPlain(CornerLists const& polyhedra, unsigned int configuration, bool reduce);

/// Joins two polygons; nothing where they are not to be joined. Not for n = 4.
std::optional<PlainPolygon> combinePlain(PlainPolygon const& p, PlainPolygon const& q, unsigned int n, bool sameNormal);
unsigned int reducePlain(PlainObject& object, unsigned int n, bool sameNormal);
/// Makes the fan around the cell centre; returns the number of vertices saved and counts rims that do not chain.
unsigned int fanPlain(PlainObject& object, unsigned int& unchained);

PlainObject plainOf(GLObject const& object);
/// Appends the library's form of the polygons to an object.
void fill(GLObject& object, PlainObject const& polygons);
testing::AssertionResult sameObject(GLObject const& actual, PlainObject const& expected);

} // namespace tamo::test
