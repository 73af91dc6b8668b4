// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "OptionValues.h"

#include "../terminal/UsageError.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tamo::tool {

namespace {

[[noreturn]] void fail(std::string const& option, std::string const& text, std::string const& expected) {
    throw UsageError(option + " " + text + ": expected " + expected);
}

// Reads all of `text` as one number of type T; false where it is something else.
template <typename T> bool read(std::string const& text, T& value) {
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

template <typename T, typename Accept>
std::vector<T> readList(std::string const& option, std::string const& text, char separator, std::size_t count,
                        std::string const& expected, Accept&& accept) {
    std::vector<T> values;
    std::size_t start = 0;
    for (;;) {
        std::size_t const end = std::min(text.find(separator, start), text.size());
        T value{};
        if (!read(text.substr(start, end - start), value) || !accept(value)) {
            fail(option, text, expected);
        }
        values.push_back(value);
        if (end == text.size()) {
            break;
        }
        start = end + 1;
    }
    if (values.size() != count) {
        fail(option, text, expected);
    }
    return values;
}

} // namespace

std::string alternatives(std::vector<std::string> const& words) {
    std::string list = words.front();
    for (std::size_t i = 1; i < words.size(); ++i) {
        list += (i + 1 == words.size() ? " or " : ", ") + words[i];
    }
    return list;
}

double parseNumber(std::string const& option, std::string const& text) {
    double value = 0;
    if (!read(text, value) || !std::isfinite(value)) {
        fail(option, text, "a number");
    }
    return value;
}

std::int64_t parseWhole(std::string const& option, std::string const& text, std::int64_t least, std::int64_t most) {
    std::int64_t value = 0;
    if (!read(text, value) || value < least || value > most) {
        fail(option, text, "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    }
    return value;
}

std::vector<double> parseNumbers(std::string const& option, std::string const& text, char separator, std::size_t count,
                                 std::string const& expected) {
    return readList<double>(option, text, separator, count, expected,
                            [](double value) { return std::isfinite(value); });
}

std::vector<int> parseWholes(std::string const& option, std::string const& text, char separator, std::size_t count,
                             int least, int most, std::string const& expected) {
    return readList<int>(option, text, separator, count, expected,
                         [least, most](int value) { return value >= least && value <= most; });
}

} // namespace tamo::tool
