// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VoxelKind.h"

#include <algorithm>

namespace tamo::volume {

VoxelKind findVoxelKind(Volume const& volume, VoxelStatistics const& statistics, Progress const& progress) {
    // NaN, as some programs mark what lies outside, is neither of the two.
    if (statistics.values && statistics.values->size() == 2) {
        return VoxelKind::Mask;
    }
    if (!statistics.areWhole) {
        return VoxelKind::Grey;
    }
    if (volume.header.isLabelMap) {
        return VoxelKind::Labels;
    }
    constexpr std::size_t kMostLabels = 256;
    if (!statistics.values || statistics.values->empty() || statistics.values->size() > kMostLabels) {
        return VoxelKind::Grey;
    }
    auto const mostFrequent =
        std::max_element(statistics.values->begin(), statistics.values->end(),
                         [](ValueCount const& a, ValueCount const& b) { return a.voxels < b.voxels; });
    NeighbourShares const shares = computeNeighbourShares(volume, mostFrequent->value, progress);
    bool const isSmooth = statistics.values->size() >= kFewestLevels && shares.oneApart > kMostOneApart;
    return shares.equal >= kLeastEqualNeighbours && !isSmooth ? VoxelKind::Labels : VoxelKind::Grey;
}

} // namespace tamo::volume
