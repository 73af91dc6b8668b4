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
/// Build a list once and scan with it as often as needed. What `list` held is deleted. `N6`, `N26` and `N14I` get lists
/// of their own. Every other value gets the list of `N14II`: `N14II` itself, values that name no system, and also `N8`
/// and `N12`, which name systems but have no list of their own. Throws `std::bad_alloc`; `list` then holds the objects
/// of the first configurations, possibly none, of which the last may be incomplete, or what it held before. After
/// "GLTesselations alloc error" on standard error, which no exception follows, it has 256 objects without polygons.
TAMO_EXPORT void GLObjectListForNeighborhood(Neighborhood::NHConfig config, GLObjectList& list);

/// Scans a box of a binary volume and hands the surface to `aggregator`, cell by cell, in a fixed order.
///
/// Voxel (x, y, z) is `data[x * increments.x + y * increments.y + z * increments.z]`, computed in 64 bits; each must be
/// 1 (foreground) or 0 (background). Of any other value the lowest bit counts: a mask of 0 and 255 is scanned as meant,
/// one of 0 and 2, or of 0 and 254, as if it were empty. This converts every mask:
///
///     std::transform(mask.begin(), mask.end(), voxels.begin(), [](unsigned char value) { return value != 0; });
///
/// The box starts at `origin` and measures `extent` voxels, read as unsigned; its samples lie `step` voxels apart, and
/// beyond the outermost ones all is background, so that the surface closes there. Bytes between samples may be read,
/// but do not count; nothing before the first or behind the last sample of a row is read. A cell's polygons come from
/// `objects` (256 slots, see `GLObjectListForNeighborhood`), scaled by `step`; its position is that of its lower corner
/// in volume coordinates. The caller's list is handed out itself for step 1 and never changed by the scan. Neither the
/// volume nor the list may change during the call.
///
/// `aggregator` always receives `start` and, unless it throws, `finish`. Returns false for a list without 256 slots, a
/// step that is 0 or larger than any side of `extent`, null `data`, and, with "wrapGlobal alloc error" on standard
/// error, where the scaled list cannot be allocated. A scan that finds no memory to work in, or needs more than a byte
/// per sample, walks cell by cell without: the same cells in the same order, only slower. Throws only what the receiver
/// throws.
TAMO_EXPORT bool wrapGlobal(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                            GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                            IPolygonAggregator& aggregator);

/// Scans a whole image, as above. Returns false, after `start` and `finish`, also for an image with an address
/// increment that 32 bits do not hold.
TAMO_EXPORT bool wrapGlobal(Kade::CImage const& image, unsigned int step, GLObjectList const& objects,
                            IPolygonAggregator& aggregator);

/// Counts what `wrapGlobal` with the same arguments would produce, and writes it to `info`.
///
/// Every cell counts, so polygons in slots 0 and 255, which `wrapGlobal` never emits, count too. Returns false, leaving
/// `info` as it was, where `wrapGlobal` would refuse its arguments. Without memory to work in it counts all the same,
/// only slower. No object may hold a null polygon. Never throws.
TAMO_EXPORT bool getGLDataInfo(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                               GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                               GLDataInfo& info);

/// Counts for a whole image, as above. Returns false also for an image with an address increment that 32 bits do not
/// hold.
TAMO_EXPORT bool getGLDataInfo(Kade::CImage const& image, unsigned int step, GLObjectList const& objects,
                               GLDataInfo& info);
