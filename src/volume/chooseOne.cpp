// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "chooseOne.h"

#include "Error.h"
#include "listed.h"
#include "quoted.h"

#include <algorithm>

namespace tamo::volume {

namespace {

// Of what a choice is made from, as many are listed; a document may hold thousands.
constexpr std::size_t kMostListed = 20;

std::string namesOf(std::vector<LabelName> const& labels) {
    return listed(labels.size(), kMostListed, [&labels](std::size_t i) { return labels[i].name; });
}

// By the UID where the number does not tell it from the others.
std::string nameOf(SeriesInfo const& info, std::vector<SeriesInfo> const& series) {
    auto const isSame = [&info](SeriesInfo const& other) { return other.number == info.number; };
    if (!info.number.empty() && std::count_if(series.begin(), series.end(), isSame) == 1) {
        return info.number;
    }
    return info.uid.empty() ? "(no UID)" : info.uid;
}

std::string namesOf(std::vector<SeriesInfo> const& series) {
    return listed(series.size(), kMostListed, [&series](std::size_t i) {
        return nameOf(series[i], series) + " " + quoted(series[i].description) + " (" +
               std::to_string(series[i].slices) + (series[i].slices == 1 ? " slice)" : " slices)");
    });
}

} // namespace

std::int64_t chooseOne(std::filesystem::path const& path, std::string const& name, std::int64_t count,
                       std::optional<std::int64_t> wanted) {
    std::string const found = std::to_string(count) + " " + name + (count == 1 ? "" : "s");
    std::string const choices =
        count == 1 ? "leave out --" + name
                   : "choose one with --" + name + " 0 " + (count == 2 ? "or " : "to ") + std::to_string(count - 1);
    if (!wanted && count > 1) {
        throw Error(path, "expected one " + name + ", found " + found + "; " + choices);
    }
    if (wanted && (*wanted < 0 || *wanted >= count)) {
        throw Error(path, "expected a " + name + " " + std::to_string(*wanted) + ", found " + found + "; " + choices);
    }
    return wanted.value_or(0);
}

std::size_t chooseSeries(VolumeSource const& source, std::vector<SeriesInfo> const& series) {
    std::vector<std::size_t> matches;
    for (std::size_t i = 0; i < series.size(); ++i) {
        if (source.series.empty() || source.series == series[i].number || source.series == series[i].uid) {
            matches.push_back(i);
        }
    }
    if (matches.size() == 1) {
        return matches.front();
    }
    std::string const wanted = source.series.empty() || matches.size() > 1 ? "one series" : "series " + source.series;
    throw Error(source.path, "expected " + wanted + ", found " + std::to_string(series.size()) +
                                 " series: " + namesOf(series) + "; choose one with --series");
}

std::int64_t frameOfSegment(VolumeSource const& source, std::vector<LabelName> const& labels) {
    if (labels.empty()) {
        throw Error(source.path, "expected a file of named segments with --segment, found none in it; leave it out");
    }
    auto const segment = std::find_if(labels.begin(), labels.end(),
                                      [&source](LabelName const& label) { return label.name == source.segment; });
    if (segment == labels.end()) {
        throw Error(source.path, "expected a segment called " + quoted(source.segment) + ", found " + namesOf(labels) +
                                     "; choose one with --segment");
    }
    return segment->frame;
}

} // namespace tamo::volume
