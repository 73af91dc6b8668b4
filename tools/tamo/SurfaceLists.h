// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "commands/Scan.h"

#include <tamo/objects/GLObjectList.h>
#include <tamo/surface/GLDataInfo.h>

#include <vector>

namespace tamo::tool {

/// Compiles the surface of a scan into display lists of the current context and returns their names: drawn one behind
/// the other they are the surface in voxels of the whole volume, and each takes a moment only. `info` is the scan's own
/// count. Throws `UserError` where there is no memory for the scan.
std::vector<unsigned int> compileSurface(Scan const& scan, GLObjectList const& objects, GLDataInfo const& info);

} // namespace tamo::tool
