// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <string>

namespace tamo::volume {

/// Returns a text from a file for people, in quotes, in one line and not too long.
inline std::string quoted(std::string text) {
    constexpr std::size_t kMost = 60;
    if (text.size() > kMost) {
        text = text.substr(0, kMost) + "...";
    }
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
    return '"' + text + '"';
}

} // namespace tamo::volume
