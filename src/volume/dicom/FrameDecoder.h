// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "TransferSyntax.h"

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace tamo::volume {

/// Reports that a compressed frame is damaged; the text says how, for the end of a sentence.
class BadFrame : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A frame as its file holds it, and the picture that the file says it is.
struct CompressedFrame {
    FrameEncoding encoding = FrameEncoding::Rle;
    /// The pieces, one behind another.
    std::vector<std::vector<unsigned char>> fragments;
    int columns = 0;
    int rows = 0;
    /// 8, 16 or 32.
    int bitsAllocated = 0;
};

/// Expands a frame to columns x rows unsigned numbers of `bitsAllocated` bits in the machine's byte order: the stored
/// bits, whatever sign they stand for. Throws `BadFrame`. Safe to call from several threads.
std::vector<unsigned char> decodeFrame(CompressedFrame const& frame);

} // namespace tamo::volume
