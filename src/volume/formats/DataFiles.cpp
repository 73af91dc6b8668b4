// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DataFiles.h"

#include "../Error.h"
#include "../bytes/parseNumber.h"
#include "../quoted.h"

#include <algorithm>
#include <map>
#include <system_error>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

// The place for a number within a name: what printf would make of "%03d".
struct Place {
    std::size_t first = 0;
    std::size_t length = 0;
    std::size_t width = 0;
    char filling = ' ';
};

// Returns the one place, or nothing where a name has none, several, or one for something else.
std::optional<Place> findPlace(std::string const& name) {
    Place place;
    place.first = name.find('%');
    if (place.first == std::string::npos || name.find('%', place.first + 1) != std::string::npos) {
        return {};
    }
    std::size_t at = place.first + 1;
    if (at < name.size() && name[at] == '0') {
        place.filling = '0';
        ++at;
    }
    // No file has more digits in its name.
    constexpr std::size_t kMostWidth = 100;
    for (; at < name.size() && name[at] >= '0' && name[at] <= '9'; ++at) {
        place.width = std::min(kMostWidth, 10 * place.width + static_cast<std::size_t>(name[at] - '0'));
    }
    if (at >= name.size() || (name[at] != 'd' && name[at] != 'i' && name[at] != 'u')) {
        return {};
    }
    place.length = at + 1 - place.first;
    return place;
}

} // namespace

std::optional<FilePattern> parsePattern(std::string const& field, std::size_t most) {
    FilePattern pattern{trimmed(field), {}};
    while (pattern.numbers.size() < most) {
        auto const blank = pattern.name.find_last_of(" \t");
        std::int64_t number = 0;
        // Far more than a name's number is, and few enough for their differences.
        constexpr std::int64_t kMost = 1'000'000'000'000;
        if (blank == std::string::npos || !parseNumber(pattern.name.substr(blank + 1), number) || number > kMost ||
            number < -kMost) {
            break;
        }
        pattern.numbers.insert(pattern.numbers.begin(), number);
        pattern.name = trimmed(pattern.name.substr(0, blank));
    }
    return findPlace(pattern.name) ? std::optional(pattern) : std::nullopt;
}

std::string nameWith(FilePattern const& pattern, std::int64_t number) {
    Place const place = findPlace(pattern.name).value_or(Place());
    std::string digits = std::to_string(number < 0 ? -number : number);
    bool const isZeroed = place.filling == '0';
    std::string const sign = number < 0 ? "-" : "";
    std::size_t const length = digits.size() + sign.size();
    std::string const filling(place.width > length ? place.width - length : 0, place.filling);
    digits = isZeroed ? sign + filling + digits : filling + sign + digits;
    return std::string(pattern.name).replace(place.first, place.length, digits);
}

std::int64_t patternCount(std::int64_t first, std::int64_t last, std::int64_t step) {
    bool const isEmpty = step == 0 || (step > 0 ? first > last : first < last);
    return isEmpty ? 0 : (last - first) / step + 1;
}

std::vector<fs::path> filesOfPattern(FilePattern const& pattern, fs::path const& header, std::int64_t first,
                                     std::int64_t step, std::int64_t count) {
    std::vector<fs::path> paths;
    for (std::int64_t i = 0; i < count; ++i) {
        paths.push_back(header.parent_path() / nameWith(pattern, first + i * step));
        requireFile(paths.back(), header);
    }
    return paths;
}

std::vector<fs::path> filesOfList(HeaderLines& lines, fs::path const& header) {
    std::vector<fs::path> paths;
    // A file that is read, or expanded, from its start for each of thousands of slices would take minutes.
    constexpr int kMostTimes = 100;
    std::map<fs::path, int> times;
    while (auto const line = lines.next()) {
        std::string const name = trimmed(*line);
        if (name.empty()) {
            continue;
        }
        paths.push_back(header.parent_path() / name);
        if (++times[paths.back().lexically_normal()] > kMostTimes) {
            throw Error(header, "expected a file for each slice, found " + quoted(name) + " more than " +
                                    std::to_string(kMostTimes) + " times");
        }
    }
    return paths;
}

void requireCount(fs::path const& header, std::int64_t count, std::int64_t found) {
    if (found != count) {
        throw Error(header, "expected the names of " + std::to_string(count) + " files of voxels, found " +
                                std::to_string(found));
    }
}

void requireFile(fs::path const& path, fs::path const& header) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        throw Error(path,
                    "expected a file of voxels, which " + header.filename().string() + " names, found no such file");
    }
}

} // namespace tamo::volume
