// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "chooseOne.h"

#include "Error.h"
#include "quoted.h"

#include <algorithm>

namespace tamo::volume {

namespace {

// Of what a choice is made from, as many are listed; a document may hold thousands.
constexpr std::size_t kMostListed = 20;

// Lists the names of labels, or the first of very many.
std::string namesOf(std::vector<LabelName> const& labels) {
    std::string names;
    for (std::size_t i = 0; i < std::min(labels.size(), kMostListed); ++i) {
        names += (i > 0 ? ", " : "") + labels[i].name;
    }
    return labels.empty() ? "no named segments" : names + (labels.size() > kMostListed ? ", ..." : "");
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
    if (series.size() == 1 && source.series.empty()) {
        return 0;
    }
    auto const chosen = std::find_if(series.begin(), series.end(), [&source](SeriesInfo const& candidate) {
        return source.series == candidate.number || (!source.series.empty() && source.series == candidate.uid);
    });
    if (chosen != series.end()) {
        return static_cast<std::size_t>(chosen - series.begin());
    }
    std::string choices;
    for (std::size_t i = 0; i < std::min(series.size(), kMostListed); ++i) {
        choices += (i > 0 ? ", " : "") + series[i].number + " (" + quoted(series[i].description) + ", " +
                   std::to_string(series[i].slices) + " slices)";
    }
    throw Error(source.path, (source.series.empty() ? "expected one series" : "expected a series " + source.series) +
                                 ", found " + std::to_string(series.size()) + ": " + choices +
                                 "; choose one with --series");
}

std::int64_t frameOfSegment(VolumeSource const& source, std::vector<LabelName> const& labels) {
    auto const segment = std::find_if(labels.begin(), labels.end(),
                                      [&source](LabelName const& label) { return label.name == source.segment; });
    if (segment == labels.end()) {
        throw Error(source.path, "expected a segment called " + quoted(source.segment) + ", found " + namesOf(labels) +
                                     "; choose one with --segment");
    }
    return segment->frame;
}

} // namespace tamo::volume
