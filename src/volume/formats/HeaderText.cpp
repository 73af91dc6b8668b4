// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "HeaderText.h"

#include "../Error.h"
#include "../bytes/FileBytes.h"
#include "../bytes/parseNumber.h"
#include "../quoted.h"

#include <algorithm>
#include <cmath>

namespace tamo::volume {

namespace {

constexpr char const* kBlanks = " \t\r\n\v\f";

// Returns whether a value is a whole number in [least, most]; NaN is not.
bool isWhole(double value, double least, double most) {
    return value >= least && value <= most && value == std::floor(value);
}

} // namespace

std::optional<std::string> HeaderLines::next() {
    constexpr std::uint64_t kMost = 1U << 24U;
    constexpr std::uint64_t kStep = 1U << 14U;
    auto end = _text.find('\n', _position);
    while (end == std::string::npos && !_isAtEnd) {
        if (_text.size() > kMost) {
            throw Error(_path, "expected a header of less than 16 MiB, found no end of it; the file is damaged");
        }
        std::size_t const before = _text.size();
        _text.resize(before + std::max<std::size_t>(kStep, before));
        std::uint64_t const got =
            FileBytes(_path, before)
                .readSome(reinterpret_cast<unsigned char*>(_text.data()) + before, _text.size() - before);
        _isAtEnd = before + got < _text.size();
        _text.resize(before + got);
        end = _text.find('\n', before);
    }
    if (end == std::string::npos && _position == _text.size()) {
        return {};
    }
    std::string line = _text.substr(_position, end == std::string::npos ? end : end - _position);
    _position = end == std::string::npos ? _text.size() : end + 1;
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return line;
}

std::string HeaderText::firstOf(std::vector<std::string> const& names) const {
    auto const found = std::find_if(names.begin(), names.end(), [this](std::string const& name) { return has(name); });
    return found == names.end() ? "" : *found;
}

std::string HeaderText::text(std::string const& name, std::string const& fallback) const {
    auto const found = _fields.find(name);
    return found == _fields.end() ? fallback : found->second;
}

std::string HeaderText::require(std::string const& name) const {
    if (!has(name)) {
        throw Error(_path, "expected the header field \"" + name + "\"; the file is damaged or truncated");
    }
    return _fields.at(name);
}

std::vector<std::string> HeaderText::words(std::string const& name) const {
    std::string value = text(name, "");
    std::replace_if(
        value.begin(), value.end(), [](char c) { return c == '(' || c == ')' || c == ','; }, ' ');
    return wordsOf(value);
}

std::vector<double> HeaderText::numbers(std::string const& name, std::size_t count) const {
    static_cast<void>(require(name));
    std::vector<double> values;
    for (std::string const& word : words(name)) {
        if (!parseNumber(word, values.emplace_back())) {
            values.clear();
            break;
        }
    }
    if (values.size() != count) {
        refuse(name, std::to_string(count) + (count == 1 ? " number" : " numbers"));
    }
    return values;
}

std::vector<double> HeaderText::finiteNumbers(std::string const& name, std::size_t count) const {
    std::vector<double> values = numbers(name, count);
    if (!std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); })) {
        refuse(name, std::to_string(count) + " finite numbers");
    }
    return values;
}

std::vector<std::int64_t> HeaderText::sizes(std::string const& name, std::size_t count) const {
    std::vector<std::int64_t> sizes;
    std::int64_t left = INT64_MAX / 8;
    for (double const side : numbers(name, count)) {
        if (!isWhole(side, 1, static_cast<double>(left))) {
            refuse(name, std::to_string(count) + " whole numbers of at least 1, of less than 2^60 voxels,");
        }
        sizes.push_back(static_cast<std::int64_t>(side));
        left /= sizes.back();
    }
    return sizes;
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
    throw Error(_path,
                "expected " + expected + " in the header field \"" + name + "\", found " + quoted(text(name, "")));
}

std::string trimmed(std::string const& text) {
    auto const first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string> wordsOf(std::string const& text) {
    std::vector<std::string> words;
    for (std::size_t at = text.find_first_not_of(kBlanks); at != std::string::npos;) {
        std::size_t const end = text.find_first_of(kBlanks, at);
        words.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(kBlanks, end);
    }
    return words;
}

} // namespace tamo::volume
