// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "../Volume.h"
#include "ValueRange.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tamo::volume {

/// How often a value occurs.
struct ValueCount {
    double value;
    std::uint64_t voxels;
};

/// Holds what the voxels of a volume are, as values: stored numbers scaled as the header says.
struct VoxelStatistics {
    /// Of the finite values; nothing where there is none.
    std::optional<ValueRange> range;
    std::uint64_t nan = 0;
    std::uint64_t positiveInfinite = 0;
    std::uint64_t negativeInfinite = 0;
    /// All finite values in rising order; nothing where there are more than `kMostValues`.
    std::optional<std::vector<ValueCount>> values;
    /// Whether all finite voxels are whole numbers, as they are stored.
    bool areWhole = true;

    static constexpr std::size_t kMostValues = 65536;
};

/// Looks at every voxel once. Throws `Cancelled`.
VoxelStatistics computeStatistics(Volume const& volume, Progress const& progress);

/// What pairs of voxels that share a face have in common; of those pairs of which not both voxels have the most
/// frequent value (the background, as a rule).
struct NeighbourShares {
    /// The share of pairs whose values are equal: near 1 where voxels are names of regions, near 0 where they are noisy
    /// amounts. 1 where there are no pairs.
    double equal;
    /// Of the others, the share whose stored numbers differ by 1: large where amounts change smoothly. 0 where there
    /// are no others.
    double oneApart;
};

/// Looks at every voxel once. Throws `Cancelled`.
NeighbourShares computeNeighbourShares(Volume const& volume, double mostFrequent, Progress const& progress);

} // namespace tamo::volume
