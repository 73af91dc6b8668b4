// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../volume/VolumeReader.h"

namespace tamo::tool {

/// Prints what a volume is: dimensions, type, spacing, value range, bytes.
void printVolumeInfo(VolumeSource const& source);

} // namespace tamo::tool
