// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "RleFrame.h"

#include "../bytes/VoxelRows.h"
#include "FrameDecoder.h"

#include <algorithm>
#include <cstdint>

namespace tamo::volume {

namespace {

// A frame begins with 16 numbers: how many planes there are, and where each begins.
constexpr std::size_t kHeaderBytes = 64;

std::size_t numberAt(std::vector<unsigned char> const& bytes, std::size_t at) {
    return bytes[at] | std::size_t{bytes[at + 1]} << 8U | std::size_t{bytes[at + 2]} << 16U |
           std::size_t{bytes[at + 3]} << 24U;
}

// Expands one plane, a byte of each pixel, to every `step`-th byte from `first` on. A byte n below 128 stands before
// n + 1 bytes, one above 128 before a byte that comes 257 - n times; 128 stands for nothing.
void expandPlane(std::vector<unsigned char> const& bytes, std::size_t at, std::size_t end,
                 std::vector<unsigned char>& target, std::size_t first, std::size_t step) {
    std::size_t next = first;
    while (next < target.size()) {
        if (at >= end) {
            throw BadFrame("damaged or truncated data");
        }
        unsigned char const head = bytes[at++];
        bool const isRun = head > 128;
        std::size_t const count = head == 128 ? 0 : isRun ? 257U - head : head + 1U;
        std::size_t const taken = head == 128 ? 0 : isRun ? 1 : count;
        if (taken > end - at) {
            throw BadFrame("damaged or truncated data");
        }
        // The last run may fill up more than the picture.
        for (std::size_t i = 0; i < count && next < target.size(); ++i, next += step) {
            target[next] = bytes[isRun ? at : at + i];
        }
        at += taken;
    }
}

} // namespace

std::vector<unsigned char> decodeRle(std::vector<unsigned char> const& bytes, std::size_t pixels,
                                     std::size_t bytesPerPixel) {
    if (bytes.size() < kHeaderBytes || numberAt(bytes, 0) != bytesPerPixel) {
        throw BadFrame("no RLE frame of " + std::to_string(bytesPerPixel) + " planes");
    }
    std::vector<unsigned char> target(pixels * bytesPerPixel);
    for (std::size_t plane = 0; plane < bytesPerPixel; ++plane) {
        std::size_t const start = numberAt(bytes, 4 + 4 * plane);
        std::size_t const end = plane + 1 < bytesPerPixel ? numberAt(bytes, 8 + 4 * plane) : bytes.size();
        if (start < kHeaderBytes || start > end || end > bytes.size()) {
            throw BadFrame("planes outside of the data");
        }
        // The most significant plane comes first.
        std::size_t const first = isBigEndianMachine() ? plane : bytesPerPixel - 1 - plane;
        expandPlane(bytes, start, end, target, first, bytesPerPixel);
    }
    return target;
}

} // namespace tamo::volume
