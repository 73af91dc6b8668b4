// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "InfoCommand.h"

#include "../terminal/Progress.h"
#include "../volume/ScalarType.h"
#include "../volume/VolumeReader.h"
#include "../volume/VoxelStatistics.h"

#include <iostream>
#include <string>

namespace tamo::tool {

InfoCommand::InfoCommand(CLI::App& program)
    : Command(program, "info", "Print dimensions, type, spacing, value range and bytes"), _volume(app()) {
    app().footer(std::string("\n") + kVolumeFormats + "\nExample:\n  tamo info brain.nii.gz");
}

void InfoCommand::run() const {
    VolumeSource const source = _volume.read();
    Volume const volume = [&source] {
        Progress progress("reading");
        return readVolume(source, progress);
    }();
    ValueRange const range = computeValueRange(volume, source.path.string());

    std::cout << "format      " << volume.format << "\n"
              << "dimensions  " << volume.size[0] << " x " << volume.size[1] << " x " << volume.size[2] << "\n"
              << "type        " << scalarTypeName(volume.image->GetScalarType()) << "\n"
              << "spacing     " << volume.spacing[0] << " x " << volume.spacing[1] << " x " << volume.spacing[2]
              << "\n";
    if (volume.slope != 1.0 || volume.intercept != 0.0) {
        std::cout << "scaling     " << volume.slope << " * stored + " << volume.intercept << "\n";
    }
    std::cout << "range       " << numberText(range.min) << " .. " << numberText(range.max) << "\n"
              << "bytes       " << voxelBytes(volume) << "\n";
}

std::string InfoCommand::memoryMessage() const { return "not enough memory for this volume"; }

} // namespace tamo::tool
