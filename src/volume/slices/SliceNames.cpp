// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SliceNames.h"

#include "../Error.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <optional>
#include <set>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

char lowerCase(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

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
    // In small letters, with "#" in the place of each number.
    std::string text;
    std::vector<std::string> numbers;
    // Where in the text each of them stands.
    std::vector<std::size_t> places;
};

SliceName takeApart(fs::path const& path) {
    SliceName name;
    std::string const stem = path.stem().string();
    for (std::size_t i = 0; i < stem.size();) {
        if (isDigit(stem[i])) {
            name.places.push_back(name.text.size());
            name.text += '#';
            name.numbers.push_back(takeNumber(stem, i));
        } else {
            name.text += lowerCase(stem[i++]);
        }
    }
    return name;
}

// Refuses a name without a counter among names with one: a picture of another kind, which may have the size of a slice.
void refuseForeign(std::vector<fs::path> const& slices, std::vector<SliceName> const& names) {
    std::map<std::string, std::size_t> counts;
    for (SliceName const& name : names) {
        ++counts[name.text];
    }
    auto const usual = std::max_element(counts.begin(), counts.end(),
                                        [](auto const& a, auto const& b) { return a.second < b.second; });
    if (counts.size() < 2 || 2 * usual->second <= names.size() || usual->first.find('#') == std::string::npos) {
        return;
    }
    auto const isUsual = [&usual](SliceName const& name) { return name.text == usual->first; };
    auto const member = std::find_if(names.begin(), names.end(), isUsual) - names.begin();
    auto const foreign = std::find_if_not(names.begin(), names.end(), isUsual) - names.begin();
    throw Error(slices.front().parent_path(),
                "expected slices named alike, such as " + slices[static_cast<std::size_t>(member)].filename().string() +
                    ", found " + slices[static_cast<std::size_t>(foreign)].filename().string() +
                    "; move what is no slice to another folder");
}

// Returns which numbers are not the same in all names, where the texts are.
std::vector<std::size_t> findChanging(std::vector<SliceName> const& names) {
    std::vector<std::size_t> changing;
    for (std::size_t i = 0; i < names.front().numbers.size(); ++i) {
        bool const isSame = std::all_of(names.begin(), names.end(), [&](SliceName const& name) {
            return name.text == names.front().text && name.numbers[i] == names.front().numbers[i];
        });
        if (!isSame) {
            changing.push_back(i);
        }
    }
    return changing;
}

// Refuses names that count in two numbers, of which one begins anew with the other, as in t0_z0, t0_z1, t1_z0, t1_z1:
// slices of several points of time, channels or parts. Numbers around a point, as in z0.5 and z1.0, are one.
void refuseSeveral(std::vector<fs::path> const& slices, std::vector<SliceName> const& names) {
    bool const isAlike = std::all_of(names.begin(), names.end(),
                                     [&names](SliceName const& name) { return name.text == names.front().text; });
    std::vector<std::size_t> const changing = isAlike ? findChanging(names) : std::vector<std::size_t>();
    if (changing.size() < 2) {
        return;
    }
    SliceName const& any = names.front();
    std::size_t const between = any.places[changing.back()] - any.places[changing.front()] - 1;
    if (between == 1 && any.text.find_first_of(".,", any.places[changing.front()]) == any.places[changing.back()] - 1) {
        return;
    }
    std::map<std::string, std::set<std::string>> firstsOf;
    for (SliceName const& name : names) {
        firstsOf[name.numbers[changing.back()]].insert(name.numbers[changing.front()]);
    }
    // Where one number begins anew, two of its values come with the same two of the other.
    std::map<std::string, std::size_t> shared;
    for (auto const& [last, firsts] : firstsOf) {
        for (auto first = firsts.begin(); firsts.size() > 1 && first != firsts.end(); ++first) {
            ++shared[*first];
        }
    }
    if (std::count_if(shared.begin(), shared.end(), [](auto const& count) { return count.second > 1; }) > 1) {
        throw Error(slices.front().parent_path(),
                    "expected slices that one number counts, found names in which one begins anew with another, from " +
                        slices.front().filename().string() + " to " + slices.back().filename().string() +
                        ": several volumes; move each to a folder of its own");
    }
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
        } else if (lowerCase(a[i]) != lowerCase(b[j])) {
            return lowerCase(a[i]) < lowerCase(b[j]);
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
    refuseForeign(slices, names);
    refuseSeveral(slices, names);
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
