// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "VolumeFormats.h"

namespace tamo::volume {

std::unique_ptr<VolumeFile> openXmlVtk(VolumeSource const& source, Progress const&) {
    throw Error(source.path, "cannot be read yet");
}

} // namespace tamo::volume
