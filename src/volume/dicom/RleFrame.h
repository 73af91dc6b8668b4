// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <vector>

namespace tamo::volume {

/// Expands an RLE frame to `pixels` numbers of `bytesPerPixel` bytes in the machine's byte order. Throws `BadFrame` for
/// one that is damaged or not whole.
std::vector<unsigned char> decodeRle(std::vector<unsigned char> const& bytes, std::size_t pixels,
                                     std::size_t bytesPerPixel);

} // namespace tamo::volume
