// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <string>

namespace tamo::volume {

/// Returns a text with its letters from A to Z in lower case, whatever the program's locale; all other bytes stay.
inline std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c); });
    return text;
}

/// Returns a text with its letters from a to z in upper case, likewise.
inline std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c); });
    return text;
}

} // namespace tamo::volume
