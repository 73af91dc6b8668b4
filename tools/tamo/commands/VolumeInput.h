// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "volume/Volume.h"
#include "volume/VolumeFile.h"
#include "volume/VolumeSource.h"
#include "volume/statistics/VoxelStatistics.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace tamo::tool {

// The stages of reading a volume, each with its progress on the terminal. All throw `volume::Error`.

std::unique_ptr<volume::VolumeFile> openInput(volume::VolumeSource const& source);
volume::Volume readInput(volume::VolumeFile const& file, volume::Box const& box);
volume::VoxelStatistics lookThrough(volume::Volume const& volume);

/// Writes a spacing as "1 x 2 x 3 mm".
std::string spacingText(volume::GridGeometry const& geometry);

/// Prints, one line each, what the reader assumed or left out.
void printNotes(std::vector<std::string> const& notes, std::ostream& out);

/// Prints how many voxels are not finite, where there are any.
void printWhatIsNotFinite(volume::VoxelStatistics const& statistics);

} // namespace tamo::tool
