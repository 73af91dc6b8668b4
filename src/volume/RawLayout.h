// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "ScalarType.h"
#include "Size3.h"

#include <cstdint>

namespace tamo::volume {

/// Describes a file of bare voxels, x fastest, then y, then z.
struct RawLayout {
    Size3 size{};
    ScalarType type = ScalarType::UInt8;
    bool isBigEndian = false;
    std::uint64_t headerBytes = 0;
};

} // namespace tamo::volume
