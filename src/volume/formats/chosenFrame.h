// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../VolumeSource.h"

#include <cstdint>

namespace tamo::volume {

/// Returns which of a file's frames the source asks for: the only one where it names none. Throws `Error`, naming the
/// choices, for a frame that the file does not have, and for none where the file has several.
std::int64_t chosenFrame(VolumeSource const& source, std::int64_t frames);

} // namespace tamo::volume
