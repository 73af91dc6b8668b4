// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "quoted.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tamo::volume {

namespace {

// Returns how many bytes the character at the front of a text has, 0 where they are no UTF-8 (RFC 3629).
std::size_t bytesOfCharacter(std::string_view text) {
    auto const byteAt = [text](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    unsigned int const lead = byteAt(0);
    if (lead < 0x80U) {
        return 1;
    }
    std::size_t const bytes = lead < 0xC2U ? 0 : lead < 0xE0U ? 2 : lead < 0xF0U ? 3 : lead < 0xF5U ? 4 : 0;
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U) {
            return 0;
        }
    }
    // Longer than needed, halves of UTF-16, and past the last code point.
    bool const isForbidden = (lead == 0xE0U && byteAt(1) < 0xA0U) || (lead == 0xEDU && byteAt(1) > 0x9FU) ||
                             (lead == 0xF0U && byteAt(1) < 0x90U) || (lead == 0xF4U && byteAt(1) > 0x8FU);
    return isForbidden ? 0 : bytes;
}

} // namespace

std::string quoted(std::string const& text) {
    constexpr std::size_t kMost = 60;
    std::string shown;
    for (std::string_view left = text; !left.empty();) {
        std::size_t const bytes = bytesOfCharacter(left);
        if (shown.size() + std::max<std::size_t>(bytes, 1) > kMost) {
            shown += "...";
            break;
        }
        auto const first = static_cast<unsigned char>(left[0]);
        bool const isShown = bytes > 0 && first >= ' ' && first != 0x7F;
        shown += isShown ? left.substr(0, bytes) : "?";
        left.remove_prefix(std::max<std::size_t>(bytes, 1));
    }
    return '"' + shown + '"';
}

} // namespace tamo::volume
