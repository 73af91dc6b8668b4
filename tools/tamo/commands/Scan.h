// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../foreground/BinaryVolume.h"

namespace tamo::tool {

/// A box of voxels to scan, every `step` of them along each axis.
struct Scan {
    BinaryVolume binary;
    unsigned int step;
};

} // namespace tamo::tool
