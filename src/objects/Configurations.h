// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo {

/// The configuration of a cell whose eight corners are all foreground, and the set of all corners.
constexpr unsigned int kFullCell = 255;

/// The number of cell configurations, and of slots in a complete list.
constexpr unsigned int kConfigurationCount = kFullCell + 1;

/// Returns whether a cell has corners of both kinds.
constexpr bool isCut(unsigned int configuration) { return configuration != 0 && configuration != kFullCell; }

} // namespace tamo
