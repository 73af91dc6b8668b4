// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Size3.h"

#include <cstdint>

namespace tamo::tool {

/// Describes a file of bare voxels, x fastest, then y, then z.
struct RawLayout {
    Size3 size{};
    int vtkType = 0;
    bool isBigEndian = false;
    std::uint64_t headerBytes = 0;
};

} // namespace tamo::tool
