// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeInput.h"

#include "../terminal/Progress.h"
#include "../terminal/numberText.h"

#include "volume/openVolume.h"

#include <iostream>

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
    return numberText(spacing[0]) + " x " + numberText(spacing[1]) + " x " + numberText(spacing[2]) + " mm";
}

void printNotes(volume::VolumeHeader const& header, volume::VoxelStatistics const& statistics) {
    for (std::string const& note : header.notes) {
        std::cout << "note        " << note << "\n";
    }
    std::uint64_t const infinite = statistics.positiveInfinite + statistics.negativeInfinite;
    if (statistics.nan + infinite > 0) {
        std::cout << "note        " << statistics.nan << " voxels are NaN and " << infinite
                  << " are infinite; the range leaves them out\n";
    }
}

} // namespace tamo::tool
