// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "HeaderText.h"

#include "../terminal/UserError.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>

namespace tamo::tool {

namespace {

// Returns whether a value is a whole number in [least, most]; NaN is not.
bool isWhole(double value, double least, double most) {
    return value >= least && value <= most && value == std::floor(value);
}

} // namespace

std::string trimmed(std::string const& text) {
    constexpr char const* kBlanks = " \t\r";
    auto const first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string HeaderText::text(std::string const& name, std::string const& fallback) const {
    auto const found = _fields.find(name);
    return found == _fields.end() ? fallback : found->second;
}

std::string HeaderText::require(std::string const& name) const {
    if (!has(name)) {
        throw UserError(_path.string() + ": expected the header field \"" + name +
                        "\"; the file is damaged or truncated");
    }
    return _fields.at(name);
}

std::vector<double> HeaderText::numbers(std::string const& name, std::size_t count) const {
    std::string text = require(name);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '(' || c == ')' || c == ','; }, ' ');
    std::istringstream words(text);
    std::vector<double> values;
    std::string word;
    while (words >> word) {
        char* rest = nullptr;
        values.push_back(std::strtod(word.c_str(), &rest));
        if (*rest != '\0') {
            refuse(name, std::to_string(count) + " numbers");
        }
    }
    if (values.size() != count) {
        refuse(name, std::to_string(count) + " numbers");
    }
    return values;
}

Size3 HeaderText::size(std::string const& name) const {
    auto const sides = numbers(name, 3);
    Size3 size{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (!isWhole(sides[axis], 1, std::numeric_limits<int>::max())) {
            refuse(name, "three whole numbers of at least 1");
        }
        size[axis] = static_cast<int>(sides[axis]);
    }
    return size;
}

std::int64_t HeaderText::whole(std::string const& name, std::int64_t least) const {
    if (!has(name)) {
        return 0;
    }
    double const value = numbers(name, 1)[0];
    // More than any file holds, and still exact.
    constexpr double kMost = 1e15;
    if (!isWhole(value, static_cast<double>(least), kMost)) {
        refuse(name, "a whole number of at least " + std::to_string(least));
    }
    return static_cast<std::int64_t>(value);
}

void HeaderText::refuse(std::string const& name, std::string const& expected) const {
    throw UserError(_path.string() + ": expected " + expected + " in the header field \"" + name + "\", found \"" +
                    text(name, "") + "\"");
}

} // namespace tamo::tool
