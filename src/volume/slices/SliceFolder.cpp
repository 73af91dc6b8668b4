// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../formats/VolumeFormats.h"

namespace tamo::volume {

std::unique_ptr<VolumeFile> openSliceFolder(VolumeSource const& source, Progress const&) {
    throw Error(source.path, "cannot be read yet");
}

std::unique_ptr<VolumeFile> refusePicture(VolumeSource const& source, Progress const&) {
    throw Error(source.path, "expected a 3-D volume, found a single 2-D slice; give the folder of the slices");
}

} // namespace tamo::volume
