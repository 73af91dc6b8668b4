// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "../Volume.h"
#include "VoxelStatistics.h"

#include <cstddef>

namespace tamo::volume {

/// What the voxels of a volume stand for.
enum class VoxelKind {
    /// Two values: foreground is the larger.
    Mask,
    /// Names of regions: foreground is what is not 0.
    Labels,
    /// Amounts: foreground begins at a threshold.
    Grey,
};

/// The shares of `computeNeighbourShares` from which on few whole numbers are labels, and amounts after all.
///
/// Tried on the volumes of tests/volume/statistics/VoxelKind_test.cpp, on eleven atlases and on four scans of brains.
/// Equal neighbours: atlases from 0.65 (thin tracts at 2 mm) to 0.91, scans from 0.00 to 0.23, but smooth bodies
/// without noise up to 0.55 and more, the larger the more. Of the unequal ones, one apart: atlases at most 0.23, smooth
/// bodies from 0.67 on. With few values that says nothing: regions called 1, 2 and 3 are one apart as well.
inline constexpr double kLeastEqualNeighbours = 0.6;
inline constexpr double kMostOneApart = 0.5;
inline constexpr std::size_t kFewestLevels = 17;

/// Tells what the voxels stand for: two values are a mask; whole numbers are labels where the header says so, or where
/// they are at most 256 different ones and neighbours are mostly equal and do not change smoothly; all else is grey.
/// Looks at the voxels again only where the statistics leave it open. Throws `Cancelled`.
VoxelKind findVoxelKind(Volume const& volume, VoxelStatistics const& statistics, Progress const& progress);

} // namespace tamo::volume
