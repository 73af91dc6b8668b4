// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomText.h"

#include <array>
#include <charconv>
#include <locale>
#include <sstream>

namespace tamo::volume {

std::string shownText(std::string const& text, std::string const& characterSet) {
    constexpr std::size_t kMost = 64;
    bool const isUtf8 = characterSet == "ISO_IR 192";
    bool const isLatin1 = characterSet == "ISO_IR 100";
    std::string shown;
    std::size_t characters = 0;
    for (char const letter : text) {
        auto const byte = static_cast<unsigned char>(letter);
        // Later bytes of a character in UTF-8 are no characters of their own.
        bool const isContinued = isUtf8 && (byte & 0xC0U) == 0x80U;
        if (!isContinued && ++characters > kMost) {
            break;
        }
        if (byte < 0x80U || isUtf8) {
            shown += byte < 0x20U || byte == 0x7FU ? '?' : letter;
        } else if (isLatin1 && byte >= 0xA0U) {
            shown += static_cast<char>(0xC0U | byte >> 6U);
            shown += static_cast<char>(0x80U | (byte & 0x3FU));
        } else {
            shown += '?';
        }
    }
    return shown;
}

std::string shownNumber(double number) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << number;
    return stream.str();
}

std::string exactNumber(double number) {
    // A sign, a point, 17 digits and an exponent of five characters at most.
    std::array<char, 32> text{};
    auto const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

} // namespace tamo::volume
