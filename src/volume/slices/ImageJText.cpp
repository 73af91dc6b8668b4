// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ImageJText.h"

#include "../Error.h"
#include "../bytes/parseNumber.h"
#include "../quoted.h"

#include <map>
#include <sstream>

namespace tamo::volume {

namespace {

std::map<std::string, std::string> linesOf(std::string const& text) {
    std::map<std::string, std::string> values;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        std::size_t const equals = line.find('=');
        if (equals != std::string::npos) {
            values[line.substr(0, equals)] = line.substr(equals + 1);
        }
    }
    return values;
}

} // namespace

std::optional<ImageJText> parseImageJText(std::string const& description, std::filesystem::path const& path) {
    if (description.compare(0, 7, "ImageJ=") != 0) {
        return std::nullopt;
    }
    auto const values = linesOf(description);
    auto const count = [&](char const* key) -> std::optional<std::int64_t> {
        auto const found = values.find(key);
        if (found == values.end()) {
            return std::nullopt;
        }
        auto const number = parseCount(found->second);
        if (!number || *number < 1) {
            throw Error(path, std::string("expected a number of ") + key + " in the ImageJ description, found " +
                                  quoted(found->second) + "; the file is damaged");
        }
        return number;
    };
    ImageJText text;
    text.images = count("images").value_or(1);
    text.channels = count("channels").value_or(1);
    text.frames = count("frames").value_or(1);
    // Left out where it is 1, and by older versions for stacks of nothing but slices.
    bool const isPlain = text.channels == 1 && text.frames == 1;
    text.slices = count("slices").value_or(isPlain ? text.images : 1);
    // None of the three is more than 2^31 - 1, of which the product of two fits.
    if (text.images % text.channels != 0 || text.images / text.channels != text.slices * text.frames) {
        throw Error(path, "expected channels x slices x frames to be the number of images, found " +
                              std::to_string(text.channels) + " x " + std::to_string(text.slices) + " x " +
                              std::to_string(text.frames) + " and " + std::to_string(text.images) +
                              " images in the ImageJ description");
    }
    if (auto const found = values.find("spacing"); found != values.end()) {
        text.spacing = parsePositive(found->second);
    }
    if (auto const found = values.find("unit"); found != values.end()) {
        text.unit = found->second;
    }
    return text;
}

} // namespace tamo::volume
