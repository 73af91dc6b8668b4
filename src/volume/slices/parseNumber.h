// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

namespace tamo::volume {

/// Reads all of a text as a number from 0 to 2^31 - 1; nothing for other texts.
inline std::optional<std::int64_t> parseCount(std::string const& text) {
    std::int32_t number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    bool const isWhole = error == std::errc() && end == text.data() + text.size() && number >= 0;
    return isWhole ? std::optional<std::int64_t>(number) : std::nullopt;
}

/// Reads all of a text as a finite number above 0, whatever the locale; nothing for other texts.
inline std::optional<double> parsePositive(std::string const& text) {
    double number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    bool const isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(number) && number > 0 ? std::optional(number) : std::nullopt;
}

} // namespace tamo::volume
