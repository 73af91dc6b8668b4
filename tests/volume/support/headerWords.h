// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Phantom.h"

#include <array>
#include <string>

// What writers of headers made of text share.

/// Writes numbers with a separator between them.
template <typename T> std::string joined(std::array<T, 3> const& numbers, std::string const& separator) {
    return std::to_string(numbers[0]) + separator + std::to_string(numbers[1]) + separator + std::to_string(numbers[2]);
}

/// Returns the phantom's voxels as bytes of 16-bit numbers.
inline std::string bytesOf(Phantom const& phantom, bool isBigEndian = false) {
    auto const bytes = voxelBytes(phantom, isBigEndian);
    return {bytes.begin(), bytes.end()};
}

/// Returns the phantom's voxels as decimal numbers.
inline std::string numbersOf(Phantom const& phantom) {
    std::string text;
    for (std::int16_t const value : phantom.values) {
        text += std::to_string(value) + (text.size() % 7 == 0 ? "\n" : " ");
    }
    text.back() = '\n';
    return text;
}

/// Returns the bytes of one of `count` equal parts, such as the slices.
inline std::string partOf(std::string const& bytes, int part, int count) {
    std::size_t const length = bytes.size() / static_cast<std::size_t>(count);
    return bytes.substr(static_cast<std::size_t>(part) * length, length);
}
