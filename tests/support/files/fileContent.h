// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string>

/// Writes one file.
void writeFile(std::filesystem::path const& path, std::string const& bytes);

/// Returns all bytes of a file.
std::string readFile(std::filesystem::path const& path);

/// Returns the bytes of a number, the least significant first unless `isBigEndian`. For little-endian machines.
template <typename T> std::string numberBytes(T value, bool isBigEndian = false) {
    std::string bytes(sizeof(T), '\0');
    std::memcpy(bytes.data(), &value, sizeof(T));
    if (isBigEndian) {
        std::reverse(bytes.begin(), bytes.end());
    }
    return bytes;
}
