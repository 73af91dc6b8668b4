// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <bzlib.h>
#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <string>

/// Returns many bytes that do not pack well.
inline std::string noise(std::size_t count) {
    std::string bytes;
    std::uint32_t state = 1;
    while (bytes.size() < count) {
        state = state * 1664525U + 1013904223U;
        bytes += static_cast<char>(state >> 24U);
    }
    return bytes;
}

/// Returns bytes as a zlib stream.
inline std::string zlibbed(std::string const& bytes) {
    uLongf length = compressBound(bytes.size());
    std::string packed(length, '\0');
    compress2(reinterpret_cast<Bytef*>(packed.data()), &length, reinterpret_cast<Bytef const*>(bytes.data()),
              bytes.size(), Z_BEST_COMPRESSION);
    return packed.substr(0, length);
}

/// Returns bytes as a bzip2 file, in blocks of up to 900 kB.
inline std::string bzipped(std::string bytes) {
    constexpr int kLargestBlocks = 9;
    std::string packed(bytes.size() + bytes.size() / 50 + 600, '\0');
    auto length = static_cast<unsigned int>(packed.size());
    BZ2_bzBuffToBuffCompress(packed.data(), &length, bytes.data(), static_cast<unsigned int>(bytes.size()),
                             kLargestBlocks, 0, 0);
    return packed.substr(0, length);
}

/// Returns two digits for each byte, in lines.
inline std::string hexDigits(std::string const& bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        auto const byte = static_cast<unsigned char>(bytes[i]);
        text += i > 0 && i % 35 == 0 ? "\n" : "";
        text += "0123456789abcdef"[byte / 16];
        text += "0123456789ABCDEF"[byte % 16];
    }
    return text + "\n";
}
