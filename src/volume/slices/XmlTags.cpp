// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "XmlTags.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

namespace tamo::volume {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

void appendUtf8(std::string& text, std::uint32_t code) {
    auto const append = [&text](std::uint32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (code < 0x80) {
        append(code);
    } else if (code < 0x800) {
        append(0xC0U | code >> 6U);
        append(0x80U | (code & 0x3FU));
    } else if (code < 0x10000) {
        append(0xE0U | code >> 12U);
        append(0x80U | (code >> 6U & 0x3FU));
        append(0x80U | (code & 0x3FU));
    } else {
        append(0xF0U | code >> 18U);
        append(0x80U | (code >> 12U & 0x3FU));
        append(0x80U | (code >> 6U & 0x3FU));
        append(0x80U | (code & 0x3FU));
    }
}

// Appends what a reference without its "&" and ";" stands for; returns false where it stands for nothing.
bool appendReference(std::string& text, std::string_view name) {
    static constexpr std::array<std::pair<std::string_view, char>, 5> kNames{
        {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
    auto const* const known =
        std::find_if(kNames.begin(), kNames.end(), [name](auto const& candidate) { return candidate.first == name; });
    if (known != kNames.end()) {
        text += known->second;
        return true;
    }
    bool const isHexadecimal = name.substr(0, 2) == "#x";
    std::string_view const digits = name.substr(std::min<std::size_t>(name.size(), isHexadecimal ? 2 : 1));
    std::uint32_t code = 0;
    auto const [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHexadecimal ? 16 : 10);
    constexpr std::uint32_t kLastCode = 0x10FFFF;
    if (name.substr(0, 1) != "#" || error != std::errc() || end != digits.data() + digits.size() || code == 0 ||
        code > kLastCode) {
        return false;
    }
    appendUtf8(text, code);
    return true;
}

// Resolves references; those that stand for nothing stay as they are.
std::string resolved(std::string_view source) {
    // Longer than that of the last code point, in decimal with a few zeros.
    constexpr std::size_t kLongest = 12;
    std::string text;
    for (std::size_t i = 0; i < source.size(); ++i) {
        std::size_t const end = source[i] == '&' ? source.substr(i, kLongest).find(';') : std::string_view::npos;
        if (end != std::string_view::npos && appendReference(text, source.substr(i + 1, end - 1))) {
            i += end;
        } else {
            text += source[i];
        }
    }
    return text;
}

} // namespace

bool XmlTags::next(XmlTag& tag) {
    while (skipTo("<")) {
        bool isPassed = false;
        if (startsWith("!--")) {
            isPassed = skipTo("-->");
        } else if (startsWith("![CDATA[")) {
            isPassed = skipTo("]]>");
        } else if (startsWith("?")) {
            isPassed = skipTo("?>");
        } else if (startsWith("!")) {
            isPassed = skipTo(">");
        } else {
            _isDamaged = !takeTag(tag);
            return !_isDamaged;
        }
        if (!isPassed) {
            _isDamaged = true;
            return false;
        }
    }
    return false;
}

bool XmlTags::skipTo(std::string_view end) {
    std::size_t const found = _text.find(end, _at);
    _at = found == std::string_view::npos ? _text.size() : found + end.size();
    return found != std::string_view::npos;
}

void XmlTags::skipBlanks() { _at = std::min(_text.find_first_not_of(kBlanks, _at), _text.size()); }

std::string XmlTags::takeName() {
    std::size_t const end = std::min(_text.find_first_of(" \t\r\n=/<>\"'&", _at), _text.size());
    std::string_view const name = _text.substr(_at, end - _at);
    _at = end;
    std::size_t const colon = name.rfind(':');
    return std::string(colon == std::string_view::npos ? name : name.substr(colon + 1));
}

bool XmlTags::takeAttribute(XmlTag& tag) {
    std::string const name = takeName();
    skipBlanks();
    if (name.empty() || !startsWith("=")) {
        return false;
    }
    ++_at;
    skipBlanks();
    if (!startsWith("\"") && !startsWith("'")) {
        return false;
    }
    std::size_t const start = _at + 1;
    std::size_t const end = _text.find(_text[_at], start);
    if (end == std::string_view::npos || _text.substr(start, end - start).find('<') != std::string_view::npos) {
        return false;
    }
    tag.attributes[name] = resolved(_text.substr(start, end - start));
    _at = end + 1;
    return true;
}

// Stands behind "<".
bool XmlTags::takeTag(XmlTag& tag) {
    tag = {};
    tag.isEnd = startsWith("/");
    _at += tag.isEnd ? 1 : 0;
    tag.name = takeName();
    if (tag.name.empty()) {
        return false;
    }
    for (skipBlanks(); !startsWith(">") && !startsWith("/>"); skipBlanks()) {
        if (!takeAttribute(tag)) {
            return false;
        }
    }
    tag.isEmpty = startsWith("/");
    _at += tag.isEmpty ? 2 : 1;
    std::size_t const end = std::min(_text.find('<', _at), _text.size());
    tag.text = resolved(_text.substr(_at, end - _at));
    return true;
}

} // namespace tamo::volume
