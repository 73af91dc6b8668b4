// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ShapedText.h"

#include "../bytes/parseNumber.h"

#include <algorithm>
#include <cstddef>

namespace tamo::volume {

namespace {

// Returns what stands between two signs behind a key; nothing without it.
std::optional<std::string> valueOf(std::string const& text, std::string const& key, char begin, char end) {
    std::size_t at = text.find('"' + key + "\":");
    at = at == std::string::npos ? at : text.find_first_not_of(' ', at + key.size() + 3);
    if (at == std::string::npos || text[at] != begin) {
        return std::nullopt;
    }
    std::size_t const last = text.find(end, at + 1);
    return last == std::string::npos ? std::nullopt : std::optional(text.substr(at + 1, last - at - 1));
}

// Returns the numbers of a list; none of one that holds anything else.
std::vector<std::int64_t> numbersOf(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    std::vector<std::int64_t> numbers;
    for (std::size_t at = 0; at <= text.size();) {
        std::size_t const comma = std::min(text.find(',', at), text.size());
        auto const number = parseCount(std::string_view(text).substr(at, comma - at));
        if (!number || *number < 1) {
            return {};
        }
        numbers.push_back(*number);
        at = comma + 1;
    }
    return numbers;
}

// Returns which of the axes before the rows is z: the one of that name, else the last that is neither time nor channel.
std::size_t findZ(std::string const& names, std::size_t count) {
    std::size_t const named = names.find('Z');
    std::size_t const last = names.empty() ? count - 1 : names.find_last_not_of("TC", count - 1);
    return named < count ? named : last;
}

constexpr std::int64_t kMost = std::int64_t{1} << 41U;

} // namespace

std::int64_t ShapedText::count() const {
    std::int64_t product = 1;
    for (Axis const& axis : axes) {
        product = axis.size > kMost / product ? kMost : product * axis.size;
    }
    return product;
}

std::int64_t ShapedText::count(char kind) const {
    ShapedText some;
    std::copy_if(axes.begin(), axes.end(), std::back_inserter(some.axes),
                 [kind](Axis const& axis) { return axis.kind == kind; });
    return some.count();
}

std::vector<std::int64_t> ShapedText::pagesOf(std::int64_t channel, std::int64_t frame) const {
    std::vector<std::int64_t> pages(static_cast<std::size_t>(count('Z')));
    for (std::int64_t page = 0, pageCount = count(); page < pageCount; ++page) {
        std::int64_t z = 0;
        std::int64_t c = 0;
        std::int64_t t = 0;
        std::int64_t planes = pageCount;
        for (Axis const& axis : axes) {
            planes /= axis.size;
            std::int64_t& at = axis.kind == 'Z' ? z : axis.kind == 'C' ? c : t;
            at = at * axis.size + page / planes % axis.size;
        }
        if (c == channel && t == frame) {
            pages[static_cast<std::size_t>(z)] = page;
        }
    }
    return pages;
}

std::optional<ShapedText> parseShapedText(std::string const& description, std::int64_t width, std::int64_t height) {
    auto const shape = valueOf(description, "shape", '[', ']');
    if (description.compare(0, 1, "{") != 0 || !shape) {
        return std::nullopt;
    }
    std::vector<std::int64_t> sizes = numbersOf(*shape);
    std::string names = valueOf(description, "axes", '"', '"').value_or("");
    if (names.size() != sizes.size()) {
        names.clear();
    }
    // The samples of a pixel may be an axis too.
    if (sizes.size() > 3 && sizes.back() == 1 && sizes[sizes.size() - 2] == width) {
        sizes.pop_back();
    }
    if (sizes.size() < 3 || sizes.back() != width || sizes[sizes.size() - 2] != height) {
        return std::nullopt;
    }
    ShapedText text;
    std::size_t const count = sizes.size() - 2;
    std::size_t const z = findZ(names, count);
    bool hasChannels = false;
    for (std::size_t i = 0; i < count; ++i) {
        bool const isChannel = !names.empty() && names[i] == 'C' && !hasChannels;
        hasChannels = hasChannels || isChannel;
        text.axes.push_back({i == z ? 'Z' : isChannel ? 'C' : 'T', sizes[i]});
    }
    return text;
}

} // namespace tamo::volume
