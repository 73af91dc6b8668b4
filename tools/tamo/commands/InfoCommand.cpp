// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "InfoCommand.h"

#include "../terminal/Progress.h"
#include "VolumeInput.h"
#include "VolumeReport.h"

#include <iostream>
#include <string>

namespace tamo::tool {

InfoCommand::InfoCommand(CLI::App& program)
    : Command(program, "info", "Print what the file says of a volume, and what its voxels are"), _volume(options()) {
    options().addFlag("--json", _isJson, "Print one JSON object, for other programs");
    options().setFooter("\n" + volumeFormatsHelp() + "\nExample:\n  tamo info brain.nii.gz");
}

void InfoCommand::run() const {
    auto const file = openInput(_volume.read());
    volume::Volume const volume = readInput(*file, volume::wholeOf(file->header().size));
    VolumeReport report{volume.header, lookThrough(volume), {}, volume.bytes()};
    {
        Progress progress("comparing");
        report.kind = findVoxelKind(volume, report.statistics, progress.callback());
    }
    (_isJson ? printJson : printReport)(report, std::cout);
}

std::string InfoCommand::memoryMessage() const { return "not enough memory for this volume"; }

} // namespace tamo::tool
