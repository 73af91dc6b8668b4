// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NrrdHeader.h"

#include "../Error.h"
#include "../bytes/parseNumber.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tamo::volume {

namespace {

// Spells fields that have two names in one way.
std::string fieldName(std::string const& name) {
    static std::map<std::string, std::string> const kSynonyms{{"datafile", "data file"}, {"lineskip", "line skip"},
                                                              {"byteskip", "byte skip"}, {"axismins", "axis mins"},
                                                              {"axismaxs", "axis maxs"}, {"centerings", "centers"}};
    std::string const lower = lowerCase(name);
    auto const synonym = kSynonyms.find(lower);
    return synonym == kSynonyms.end() ? lower : synonym->second;
}

// A line is a comment, "field: value", or "key:=value". Returns whether it is the last one, which the names of files
// follow. Only the line itself is looked at: there may be very many, and one of them may be very long.
bool readLine(NrrdHeader& header, std::string const& line) {
    auto const colon = line.find(':');
    if (line[0] == '#' || colon == std::string::npos) {
        return false;
    }
    auto const field = line.find(": ");
    auto const key = line.find(":=");
    if (key < field) {
        header.keys[line.substr(0, key)] = line.substr(key + 2);
    } else if (field != std::string::npos) {
        std::string const name = fieldName(line.substr(0, field));
        header.text.set(name, trimmed(line.substr(field + 2)));
        auto const words = name == "data file" ? wordsOf(line.substr(field + 2)) : std::vector<std::string>();
        return !words.empty() && words[0] == "LIST";
    }
    return false;
}

void readLines(NrrdHeader& header, HeaderLines& lines) {
    auto line = lines.next();
    if (!line || line->compare(0, 4, "NRRD") != 0) {
        throw Error(header.text.path(), "expected a NRRD file, which begins with \"NRRD\"");
    }
    for (line = lines.next(); line && !trimmed(*line).empty(); line = lines.next()) {
        if (readLine(header, *line)) {
            return;
        }
    }
    if (!line && !header.text.has("data file")) {
        throw Error(header.text.path(), "expected an empty line behind the NRRD header; the file is truncated");
    }
}

// Refuses axes along which a voxel has several numbers.
void checkKind(HeaderText const& text, std::string const& kind) {
    for (char const* const word :
         {"color", "vector", "normal", "complex", "point", "gradient", "quaternion", "matrix"}) {
        if (lowerCase(kind).find(word) != std::string::npos) {
            text.refuse("kinds", "axes of space and of frames, a volume of one number per voxel,");
        }
    }
}

// Words are either "none" or belong to a vector.
void readDirections(NrrdHeader& header) {
    HeaderText const& text = header.text;
    if (!text.has("space directions")) {
        return;
    }
    std::size_t const count = header.spaceDimension;
    std::vector<double> numbers;
    for (std::string const& word : text.words("space directions")) {
        if (lowerCase(word) == "none" && numbers.empty()) {
            header.directions.emplace_back();
        } else if (!parseNumber(word, numbers.emplace_back()) || !std::isfinite(numbers.back())) {
            text.refuse("space directions", "vectors of " + std::to_string(count) + " finite numbers");
        }
        if (numbers.size() == count) {
            header.directions.push_back(std::move(numbers));
            numbers.clear();
        }
    }
    if (!numbers.empty() || header.directions.size() != header.sizes.size()) {
        text.refuse("space directions",
                    std::to_string(header.sizes.size()) + " vectors of " + std::to_string(count) + " numbers");
    }
}

// Returns whether an axis leads nowhere in space.
bool isOutsideOfSpace(std::vector<double> const& direction) {
    return std::all_of(direction.begin(),
                       direction.begin() + std::min<std::ptrdiff_t>(3, std::ptrdiff_t(direction.size())),
                       [](double x) { return x == 0; });
}

std::vector<std::size_t> axesThat(bool (*isWanted)(std::string const&), std::vector<std::string> const& kinds) {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (isWanted(lowerCase(kinds[i]))) {
            found.push_back(i);
        }
    }
    return found;
}

// Returns the axes that may be that of frames: those whose kind is not one of space, or is not said, or else the last.
std::vector<std::size_t> framesByKind(std::vector<std::string> const& kinds) {
    auto const isUnsaid = [](std::string const& kind) { return kind == "???" || kind == "none"; };
    auto const isOfFrames = [](std::string const& kind) {
        return kind != "domain" && kind != "space" && kind != "???" && kind != "none";
    };
    auto const stated = axesThat(isOfFrames, kinds);
    auto const unsaid = axesThat(isUnsaid, kinds);
    return !stated.empty() ? stated : unsaid.size() == 1 ? unsaid : std::vector<std::size_t>{3};
}

// Finds the axis of frames of four: by the directions, or else by the kinds.
std::size_t findFrameAxis(NrrdHeader const& header) {
    bool const hasDirections = !header.directions.empty();
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < header.directions.size(); ++i) {
        if (isOutsideOfSpace(header.directions[i])) {
            found.push_back(i);
        }
    }
    if (!hasDirections) {
        found = framesByKind(header.text.words("kinds"));
    }
    if (found.size() != 1 || (found[0] != 0 && found[0] != 3)) {
        header.text.refuse(hasDirections ? "space directions" : "kinds",
                           "three axes of space, and one of frames before or behind them,");
    }
    return found[0];
}

void sortAxes(NrrdHeader& header) {
    auto const kinds = header.text.words("kinds");
    for (std::string const& kind : kinds) {
        checkKind(header.text, kind);
    }
    if (header.sizes.size() == 4) {
        header.frameAxis = findFrameAxis(header);
        if (header.frameAxis == 0U) {
            header.spaceAxes = {1, 2, 3};
        }
    } else if (std::any_of(kinds.begin(), kinds.end(),
                           [](std::string const& kind) { return lowerCase(kind) == "list"; })) {
        header.text.refuse("kinds", "three axes of space, a volume of one number per voxel,");
    }
}

// Returns the number of coordinates of a space: its name tells those with time.
std::size_t spaceDimension(HeaderText const& text) {
    if (text.has("space dimension")) {
        std::int64_t const dimension = text.whole("space dimension", 1);
        if (dimension != 3 && dimension != 4) {
            text.refuse("space dimension", "3 or 4");
        }
        return static_cast<std::size_t>(dimension);
    }
    std::string const space = lowerCase(text.text("space", ""));
    bool const hasTime = space == "rast" || space == "last" || space == "lpst" ||
                         (space.size() > 5 && space.compare(space.size() - 5, 5, "-time") == 0);
    return hasTime ? 4 : 3;
}

} // namespace

NrrdHeader readNrrdHeader(HeaderLines& lines, std::filesystem::path const& path) {
    NrrdHeader header(path);
    readLines(header, lines);
    std::string const dimension = header.text.require("dimension");
    if (dimension != "3" && dimension != "4") {
        header.text.refuse("dimension", "3 or 4, a 3-D volume of one number per voxel or several of them,");
    }
    header.sizes = header.text.sizes("sizes", dimension == "3" ? 3 : 4);
    header.spaceDimension = spaceDimension(header.text);
    readDirections(header);
    sortAxes(header);
    return header;
}

std::vector<std::string> quotedTexts(std::string const& text) {
    std::vector<std::string> texts;
    for (auto first = text.find('"'); first != std::string::npos;) {
        auto const last = text.find('"', first + 1);
        if (last == std::string::npos) {
            break;
        }
        texts.push_back(trimmed(text.substr(first + 1, last - first - 1)));
        first = text.find('"', last + 1);
    }
    return texts;
}

} // namespace tamo::volume
