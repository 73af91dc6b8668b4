// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../formats/VolumeFormats.h"

namespace tamo::volume {

std::unique_ptr<VolumeFile> openDicom(VolumeSource const& source, Progress const&) {
    throw Error(source.path, "cannot be read yet");
}

std::unique_ptr<VolumeFile> openDicomFolder(VolumeSource const& source, std::vector<std::filesystem::path> const&,
                                            Progress const&) {
    throw Error(source.path, "cannot be read yet");
}

bool isDicom(std::filesystem::path const&) { return false; }

} // namespace tamo::volume
