// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "volume/VolumeHeader.h"
#include "volume/statistics/VoxelKind.h"
#include "volume/statistics/VoxelStatistics.h"

#include <cstdint>
#include <iosfwd>

namespace tamo::tool {

/// What `tamo info` tells of a volume.
struct VolumeReport {
    volume::VolumeHeader header;
    volume::VoxelStatistics statistics;
    volume::VoxelKind kind = volume::VoxelKind::Grey;
    std::uint64_t bytes = 0;
};

/// Writes a report as lines for people, a word and what it stands for.
void printReport(VolumeReport const& report, std::ostream& out);

/// Writes it as one JSON object. Numbers are those of the file in millimetres (LPS); texts that are not UTF-8 have
/// replacement characters.
void printJson(VolumeReport const& report, std::ostream& out);

} // namespace tamo::tool
