// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/geometry/GLtVec3.h>
#include <tamo/neighborhood/Neighborhood.h>
#include <tamo/objects/GLObjectList.h>
#include <tamo/surface/GLDataInfo.h>
#include <tamo/surface/IPolygonAggregator.h>

namespace Kade {
class CImage;
}

/// Fills `list` with the polygons of the 256 cell configurations under the adjacency system `config`.
///
/// Build a list once and scan with it as often as needed. What `list` held is deleted. Any value of `config` is served:
/// one that names no system gets the list of `N14II`. Throws `std::bad_alloc`.
TAMO_EXPORT void GLObjectListForNeighborhood(Neighborhood::NHConfig config, GLObjectList& list);

/// Scans a box of a binary volume and hands the surface to `aggregator`, cell by cell, in a fixed order.
///
/// Voxel (x, y, z) is `data[x * increments.x + y * increments.y + z * increments.z]`, computed in 64 bits; each must be
/// 1 (foreground) or 0 (background). The box starts at `origin` and measures `extent` voxels, read as unsigned; its
/// samples lie `step` voxels apart, and beyond the outermost ones all is background, so that the surface closes there.
/// A cell's polygons come from `objects` (256 slots, see `GLObjectListForNeighborhood`), scaled by `step`; its position
/// is that of its lower corner in volume coordinates. The caller's list is handed out itself for step 1 and never
/// changed by the scan.
///
/// `aggregator` always receives `start` and, unless it throws, `finish`. Returns false for a list without 256 slots, a
/// step that is 0 or larger than any side of `extent`, null `data`, and, with "wrapGlobal alloc error" on standard
/// error, where the scaled list or the scan's work space cannot be allocated. Throws only what the receiver throws.
TAMO_EXPORT bool wrapGlobal(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                            GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                            IPolygonAggregator& aggregator);

/// Scans a whole image, as above.
TAMO_EXPORT bool wrapGlobal(Kade::CImage const& image, unsigned int step, GLObjectList const& objects,
                            IPolygonAggregator& aggregator);

/// Counts what `wrapGlobal` with the same arguments would produce, and writes it to `info`.
///
/// Every cell counts, so polygons in slots 0 and 255, which `wrapGlobal` never emits, count too. Returns false, leaving
/// `info` as it was, where `wrapGlobal` would refuse its arguments. Without memory for its work space it counts all the
/// same, many times slower. Never throws.
TAMO_EXPORT bool getGLDataInfo(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                               GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                               GLDataInfo& info);

/// Counts for a whole image, as above.
TAMO_EXPORT bool getGLDataInfo(Kade::CImage const& image, unsigned int step, GLObjectList const& objects,
                               GLDataInfo& info);
