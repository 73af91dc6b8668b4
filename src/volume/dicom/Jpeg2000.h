// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <vector>

namespace tamo::volume {

/// Expands a JPEG 2000 codestream of one component, with or without the boxes of a file around it, to columns x rows
/// numbers, row by row. Throws `BadFrame` for one that is damaged, not whole, or of another size; prints nothing.
std::vector<std::int32_t> decodeJpeg2000(std::vector<unsigned char> const& bytes, int columns, int rows);

} // namespace tamo::volume
