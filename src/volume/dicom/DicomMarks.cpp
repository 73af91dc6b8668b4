// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomMarks.h"

#include "../Error.h"
#include "../bytes/parseNumber.h"
#include "../chooseOne.h"
#include "../listed.h"
#include "../quoted.h"
#include "DicomText.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tamo::volume {

namespace {

using Places = std::vector<std::vector<StackSlice>>;

// What tells frames apart: one mark, or two of them.
struct Key {
    std::string name;
    std::string second;
};

std::optional<std::string> markOf(DicomFrame const& frame, std::string const& name) {
    auto const found =
        std::find_if(frame.marks.begin(), frame.marks.end(), [&name](auto const& mark) { return mark.first == name; });
    return found == frame.marks.end() ? std::nullopt : std::optional<std::string>(found->second);
}

// Returns the number that a mark is put in order by: 0 for a text. In no one's locale, and never NaN, which has no
// order.
double orderOf(std::string const& mark) {
    double number = 0;
    return parseNumber(mark, number) && std::isfinite(number) ? number : 0;
}

// A slice with the values by which it is put in order.
struct Marked {
    std::string text;
    std::pair<double, double> numbers;
    StackSlice slice;
};

std::vector<Marked> sortedBy(Key const& key, MarkedSeries const& series, std::vector<StackSlice> const& place) {
    std::vector<Marked> marked;
    for (StackSlice const& slice : place) {
        DicomFrame const& frame = series.images[slice.image].frames[slice.frame];
        auto const first = markOf(frame, key.name);
        auto const second = key.second.empty() ? std::optional<std::string>("") : markOf(frame, key.second);
        if (!first || !second) {
            return {};
        }
        marked.push_back(
            {*first + (second->empty() ? "" : " / " + *second), {orderOf(*first), orderOf(*second)}, slice});
    }
    std::sort(marked.begin(), marked.end(), [](Marked const& a, Marked const& b) {
        return a.numbers != b.numbers ? a.numbers < b.numbers : a.text < b.text;
    });
    return marked;
}

// Whether the key takes different values at each place, the same ones everywhere.
bool tellsApart(Key const& key, MarkedSeries const& series, Places const& places) {
    std::vector<Marked> const first = sortedBy(key, series, places.front());
    auto const isSame = [](Marked const& a, Marked const& b) { return a.text == b.text; };
    if (first.empty() || std::adjacent_find(first.begin(), first.end(), isSame) != first.end()) {
        return false;
    }
    return std::all_of(places.begin(), places.end(), [&](std::vector<StackSlice> const& place) {
        std::vector<Marked> const others = sortedBy(key, series, place);
        return std::equal(others.begin(), others.end(), first.begin(), first.end(), isSame);
    });
}

std::optional<Key> findKey(MarkedSeries const& series, Places const& places) {
    StackSlice const& slice = places.front().front();
    auto const& marks = series.images[slice.image].frames[slice.frame].marks;
    for (auto const& mark : marks) {
        if (Key const key{mark.first, {}}; tellsApart(key, series, places)) {
            return key;
        }
    }
    for (std::size_t i = 0; i < marks.size(); ++i) {
        for (std::size_t j = i + 1; j < marks.size(); ++j) {
            if (Key const key{marks[i].first, marks[j].first}; tellsApart(key, series, places)) {
                return key;
            }
        }
    }
    return std::nullopt;
}

// Of what a choice is made from, as many are listed.
constexpr std::size_t kMostListed = 20;

// The end of a refusal: by which names segments can be chosen.
std::string segmentNames(MarkedSeries const& series) {
    auto const& segments = series.images.front().segments;
    return segments.empty()
               ? ""
               : ", or with --segment: " + listed(segments.size(), kMostListed,
                                                  [&segments](std::size_t i) { return quoted(segments[i].second); });
}

// The frame that the source names: by its number, or by the segment that it holds. -1 where it names none.
std::int64_t wantedFrame(MarkedSeries const& series, std::vector<Marked> const& frames, bool areSegments) {
    if (series.source.frame || !areSegments || series.source.segment.empty()) {
        return series.source.frame.value_or(-1);
    }
    std::vector<LabelName> labels;
    for (auto const& [number, name] : series.images[frames.front().slice.image].segments) {
        for (std::size_t frame = 0; frame < frames.size(); ++frame) {
            if (frames[frame].numbers.first == static_cast<double>(number)) {
                labels.push_back({1, name, static_cast<std::int64_t>(frame)});
            }
        }
    }
    return frameOfSegment(series.source, labels);
}

// Refuses several frames of which some lack a slice, or have one too many.
void checkCounts(MarkedSeries const& series, Places const& places) {
    auto const [least, most] = std::minmax_element(places.begin(), places.end(),
                                                   [](auto const& a, auto const& b) { return a.size() < b.size(); });
    if (least->size() > 1 && least->size() < most->size()) {
        throw Error(series.source.path,
                    "expected as many slices at each place, found " + std::to_string(least->size()) + " at that of " +
                        series.nameOf(least->front()) + " and " + std::to_string(most->size()) + " at that of " +
                        series.nameOf(most->front()) + ": of several frames one lacks a slice or has one too many");
    }
}

[[noreturn]] void refuseDoubled(MarkedSeries const& series, std::vector<StackSlice> const& place) {
    throw Error(series.source.path, "expected one slice at each place, found " + series.nameOf(place[0]) + " and " +
                                        series.nameOf(place[1]) + " at the same; leave out what is doubled");
}

} // namespace

std::vector<StackSlice> chooseFrame(MarkedSeries const& series, Places const& places, DicomStack& stack) {
    auto const doubled = std::find_if(places.begin(), places.end(), [](auto const& place) { return place.size() > 1; });
    std::vector<StackSlice> chosen;
    if (doubled == places.end()) {
        for (auto const& place : places) {
            chosen.push_back(place.front());
        }
        return chosen;
    }
    checkCounts(series, places);
    std::size_t const count = doubled->size();
    bool const isEven =
        std::all_of(places.begin(), places.end(), [count](auto const& place) { return place.size() == count; });
    std::optional<Key> const key = isEven ? findKey(series, places) : std::nullopt;
    if (!key) {
        refuseDoubled(series, *doubled);
    }
    std::vector<Marked> const frames = sortedBy(*key, series, places.front());
    std::string const name = key->name + (key->second.empty() ? "" : " / " + key->second);
    bool const areSegments = key->name == "segment" && key->second.empty();
    std::int64_t const frame = wantedFrame(series, frames, areSegments);
    if (frame < 0 || frame >= static_cast<std::int64_t>(count)) {
        throw Error(series.source.path, "expected one volume, found " + std::to_string(count) + " frames by " + name +
                                            " (" +
                                            listed(frames.size(), kMostListed,
                                                   [&frames](std::size_t i) { return shownText(frames[i].text, {}); }) +
                                            "); choose one with --frame, 0 to " + std::to_string(count - 1) +
                                            (areSegments ? segmentNames(series) : ""));
    }
    stack.frames = static_cast<std::int64_t>(count);
    stack.frame = frame;
    for (Marked const& marked : frames) {
        if (areSegments) {
            stack.segments.push_back(marked.text);
        }
    }
    for (auto const& place : places) {
        chosen.push_back(sortedBy(*key, series, place)[static_cast<std::size_t>(frame)].slice);
    }
    return chosen;
}

} // namespace tamo::volume
