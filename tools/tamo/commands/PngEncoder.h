// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "picture/Picture.h"

#include <vector>

namespace tamo::tool {

/// Returns a picture as the bytes of a PNG file. Throws `std::bad_alloc`.
std::vector<unsigned char> encodePng(picture::Picture const& picture);

} // namespace tamo::tool
