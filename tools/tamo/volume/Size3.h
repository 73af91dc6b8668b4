// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <string>

namespace tamo::tool {

/// Holds whole numbers of voxels along x, y and z.
using Size3 = std::array<int, 3>;

/// Writes the three numbers with a separator between them.
inline std::string text(Size3 const& numbers, char const* separator) {
    return std::to_string(numbers[0]) + separator + std::to_string(numbers[1]) + separator + std::to_string(numbers[2]);
}

} // namespace tamo::tool
