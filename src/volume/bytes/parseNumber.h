// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <locale>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace tamo::volume {

/// Reads the rare number that is too small for its type; returns false for one that is too large.
template <typename T> bool parseExtreme(std::string_view word, T& value) {
    std::istringstream stream{std::string(word)};
    stream.imbue(std::locale::classic());
    return static_cast<bool>(stream >> value);
}

/// Reads a decimal number of the type T from the whole of `word`, in no one's locale; returns false where it is none,
/// or none that T holds.
///
/// A plus sign may stand before a number. "nan" and "inf" are numbers of floating-point types, in any case; numbers too
/// small for the type come close to 0. A byte is a number like others, and no negative number is a large one.
template <typename T> bool parseNumber(std::string_view word, T& value) {
    if (word.size() > 1 && word[0] == '+' && word[1] != '-') {
        word.remove_prefix(1);
    }
    char const* const end = word.data() + word.size();
    auto const result = std::from_chars(word.data(), end, value);
    if (result.ptr != end || word.empty()) {
        return false;
    }
    if constexpr (std::is_floating_point_v<T>) {
        if (result.ec == std::errc::result_out_of_range) {
            return parseExtreme(word, value);
        }
        bool const isNamed = word.find_first_of("nN") != std::string_view::npos;
        return result.ec == std::errc() && (std::isfinite(value) || isNamed);
    } else {
        return result.ec == std::errc();
    }
}

/// Reads all of a text as a number from 0 to 2^31 - 1, digits alone; nothing for other texts.
inline std::optional<std::int64_t> parseCount(std::string_view text) {
    std::int32_t number = 0;
    bool const isCount = !text.empty() && text[0] != '+' && parseNumber(text, number) && number >= 0;
    return isCount ? std::optional<std::int64_t>(number) : std::nullopt;
}

/// Reads all of a text as a finite number above 0; nothing for other texts.
inline std::optional<double> parsePositive(std::string_view text) {
    double number = 0;
    bool const isPositive = parseNumber(text, number) && std::isfinite(number) && number > 0;
    return isPositive ? std::optional(number) : std::nullopt;
}

} // namespace tamo::volume
