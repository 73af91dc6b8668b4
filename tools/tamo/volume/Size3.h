// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>

namespace tamo::tool {

/// Holds whole numbers of voxels along x, y and z.
using Size3 = std::array<int, 3>;

} // namespace tamo::tool
