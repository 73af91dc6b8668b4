// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>

namespace tamo::bench {

/// Sums bytes of 0 and 1 as fast as memory gives them: what a scan could reach at best.
std::uint64_t sumVoxels(unsigned char const* bytes, std::size_t count);

} // namespace tamo::bench
