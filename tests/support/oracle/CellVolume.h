// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/objects/GLObjectList.h>

#include <cstdint>

namespace tamo::test {

/// Returns 48 times the volume on the foreground side of a configuration's surface within the cell.
std::int64_t drawnVolume48(GLObject const& object, unsigned int configuration);

/// Returns 48 times the volume on the foreground side where each tetrahedron of the cell is cut on its own; `config`
/// is N14I or N14II.
std::int64_t tetrahedraVolume48(unsigned int config, unsigned int configuration);

} // namespace tamo::test
