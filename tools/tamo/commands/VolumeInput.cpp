// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeInput.h"

#include "../terminal/Progress.h"

#include "volume/openVolume.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace tamo::tool {

std::unique_ptr<volume::VolumeFile> openInput(volume::VolumeSource const& source) {
    Progress progress("opening");
    return volume::openVolume(source, progress.callback());
}

volume::Volume readInput(volume::VolumeFile const& file, volume::Box const& box) {
    Progress progress("reading");
    return file.read(box, progress.callback());
}

volume::VoxelStatistics lookThrough(volume::Volume const& volume) {
    Progress progress("values");
    return computeStatistics(volume, progress.callback());
}

std::string spacingText(volume::GridGeometry const& geometry) {
    Vector3 const& spacing = geometry.spacing;
    std::ostringstream text;
    // As many digits as single precision holds, in which many files state lengths.
    text << std::setprecision(6) << spacing[0] << " x " << spacing[1] << " x " << spacing[2] << " mm";
    return text.str();
}

void printNotes(std::vector<std::string> const& notes, std::ostream& out) {
    for (std::string note : notes) {
        // Names of files may hold line ends.
        std::replace(note.begin(), note.end(), '\n', ' ');
        out << "note        " << note << "\n";
    }
}

void printWhatIsNotFinite(volume::VoxelStatistics const& statistics) {
    std::uint64_t const infinite = statistics.positiveInfinite + statistics.negativeInfinite;
    if (statistics.nan + infinite > 0) {
        std::cout << "note        of the voxels " << statistics.nan << " NaN and " << infinite
                  << " infinite, left out of the range\n";
    }
}

} // namespace tamo::tool
