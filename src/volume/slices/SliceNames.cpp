// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SliceNames.h"

#include "../Error.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Returns the number that starts at a place, without its leading zeros (that of a zero has no digits at all), and moves
// the place behind it.
std::string takeNumber(std::string const& name, std::size_t& at) {
    std::size_t const start = std::min(name.find_first_not_of('0', at), name.size());
    at = std::min(name.find_first_not_of("0123456789", at), name.size());
    return start < at ? name.substr(start, at - start) : "";
}

// A name without its ending, taken apart.
struct SliceName {
    // "#" in the place of each number.
    std::string text;
    std::vector<std::string> numbers;
};

SliceName takeApart(fs::path const& path) {
    SliceName name;
    std::string const stem = path.stem().string();
    for (std::size_t i = 0; i < stem.size();) {
        if (isDigit(stem[i])) {
            name.text += '#';
            name.numbers.push_back(takeNumber(stem, i));
        } else {
            name.text += stem[i++];
        }
    }
    return name;
}

// Returns which number the names differ in; nothing where their texts or several numbers differ.
std::optional<std::size_t> findCounter(std::vector<SliceName> const& names) {
    std::optional<std::size_t> counter;
    for (SliceName const& name : names) {
        if (name.text != names.front().text || name.numbers.size() != names.front().numbers.size()) {
            return std::nullopt;
        }
        for (std::size_t i = 0; i < name.numbers.size(); ++i) {
            if (name.numbers[i] == names.front().numbers[i] || counter == i) {
                continue;
            }
            if (counter) {
                return std::nullopt;
            }
            counter = i;
        }
    }
    return counter;
}

void refuseDoubles(std::vector<fs::path> const& slices, std::vector<SliceName> const& names) {
    std::map<std::pair<std::string, std::vector<std::string>>, std::size_t> seen;
    for (std::size_t i = 0; i < slices.size(); ++i) {
        auto const [place, isNew] = seen.try_emplace({names[i].text, names[i].numbers}, i);
        if (!isNew) {
            throw Error(slices[i].parent_path(), "expected each slice once, found " +
                                                     slices[place->second].filename().string() + " and " +
                                                     slices[i].filename().string() + "; take one of them away");
        }
    }
}

// Returns the numbers by which neighbours differ, nothing where they are too long to be counted with.
std::vector<std::int64_t> stepsOf(std::vector<SliceName> const& names, std::size_t counter) {
    constexpr std::size_t kMostDigits = 18;
    std::vector<std::int64_t> steps;
    std::int64_t last = 0;
    for (SliceName const& name : names) {
        std::string const& digits = name.numbers[counter];
        if (digits.size() > kMostDigits) {
            return {};
        }
        std::int64_t const number = digits.empty() ? 0 : std::stoll(digits);
        steps.push_back(number - last);
        last = number;
    }
    steps.erase(steps.begin());
    return steps;
}

// Returns the step that at least half of all are; nothing where none is.
std::optional<std::int64_t> usualStep(std::vector<std::int64_t> const& steps) {
    std::map<std::int64_t, std::size_t> counts;
    for (std::int64_t const step : steps) {
        ++counts[step];
    }
    // Of two steps that are equally frequent the smaller: the other one is a gap.
    auto const most = std::max_element(counts.begin(), counts.end(),
                                       [](auto const& a, auto const& b) { return a.second < b.second; });
    return most != counts.end() && 2 * most->second >= steps.size() ? std::optional(most->first) : std::nullopt;
}

} // namespace

bool isBefore(std::string const& a, std::string const& b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            std::string const numberA = takeNumber(a, i);
            std::string const numberB = takeNumber(b, j);
            if (numberA != numberB) {
                return numberA.size() != numberB.size() ? numberA.size() < numberB.size() : numberA < numberB;
            }
        } else if (a[i] != b[j]) {
            return a[i] < b[j];
        } else {
            ++i;
            ++j;
        }
    }
    return a.size() - i != b.size() - j ? a.size() - i < b.size() - j : a < b;
}

void checkNumbering(std::vector<fs::path> const& slices) {
    std::vector<SliceName> names;
    names.reserve(slices.size());
    for (fs::path const& slice : slices) {
        names.push_back(takeApart(slice));
    }
    refuseDoubles(slices, names);
    std::optional<std::size_t> const counter = findCounter(names);
    if (!counter) {
        return;
    }
    std::vector<std::int64_t> const steps = stepsOf(names, *counter);
    std::optional<std::int64_t> const usual = usualStep(steps);
    for (std::size_t i = 0; usual && i < steps.size(); ++i) {
        if (steps[i] != *usual) {
            throw Error(slices[i].parent_path(), "expected slices numbered in steps of " + std::to_string(*usual) +
                                                     ", found a step of " + std::to_string(steps[i]) + " from " +
                                                     slices[i].filename().string() + " to " +
                                                     slices[i + 1].filename().string() +
                                                     "; a slice is missing or does not belong to the others");
        }
    }
}

} // namespace tamo::volume
