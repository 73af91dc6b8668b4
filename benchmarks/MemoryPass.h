// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tamo::bench {

/// Sums bytes of 0 and 1 as fast as memory gives them: what a scan could reach at best.
///
/// Eight bytes of a word are summed at once, and compilers add several words at once.
inline std::uint64_t sumVoxels(unsigned char const* bytes, std::size_t count) {
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    // No byte of a sum of so many words can overflow.
    constexpr std::size_t kWords = 248;
    std::uint64_t total = 0;
    std::size_t i = 0;
    while (i + kWord <= count) {
        std::size_t const words = std::min(kWords, (count - i) / kWord);
        std::uint64_t sums = 0;
        for (std::size_t w = 0; w < words; ++w) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes + i + w * kWord, kWord);
            sums += word;
        }
        std::uint64_t const pairs = (sums & 0x00FF00FF00FF00FFU) + (sums >> 8U & 0x00FF00FF00FF00FFU);
        total += (pairs * 0x0001000100010001U) >> 48U;
        i += words * kWord;
    }
    for (; i < count; ++i) {
        total += bytes[i];
    }
    return total;
}

} // namespace tamo::bench
