// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "VolumeFormats.h"

namespace tamo::volume {

std::unique_ptr<VolumeFile> openXmlVtk(VolumeSource const& source, Progress const&) {
    throw Error(source.path,
                "expected a format that this build reads, found VTK's XML; build with TAMO_WITH_VTK=ON, or "
                "save it as .mha or .vtk");
}

} // namespace tamo::volume
