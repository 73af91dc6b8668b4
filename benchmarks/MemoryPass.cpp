// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "MemoryPass.h"

#include <cstring>

namespace tamo::bench {

namespace {

// Sums up to 248 words of bytes of 0 and 1: all bytes of a word at once, none of which can overflow, and compilers
// take several words at once.
std::uint64_t sumWords(unsigned char const* bytes, std::size_t words) {
    std::uint64_t sums = 0;
    for (std::size_t i = 0; i < words; ++i) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes + i * sizeof(word), sizeof(word));
        sums += word;
    }
    std::uint64_t const pairs = (sums & 0x00FF00FF00FF00FFU) + (sums >> 8U & 0x00FF00FF00FF00FFU);
    return (pairs * 0x0001000100010001U) >> 48U;
}

} // namespace

std::uint64_t sumVoxels(unsigned char const* bytes, std::size_t count) {
    // Eight streams side by side, each an eighth of the bytes: more reads are under way at a time than with one.
    constexpr std::size_t kStreams = 8;
    constexpr std::size_t kWords = 64;
    constexpr std::size_t kPiece = kWords * sizeof(std::uint64_t);
    std::size_t const pieces = count / kStreams / kPiece;
    std::uint64_t total = 0;
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        for (std::size_t stream = 0; stream < kStreams; ++stream) {
            total += sumWords(bytes + (stream * pieces + piece) * kPiece, kWords);
        }
    }
    for (std::size_t i = kStreams * pieces * kPiece; i < count; ++i) {
        total += bytes[i];
    }
    return total;
}

} // namespace tamo::bench
