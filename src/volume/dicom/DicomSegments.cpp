// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomSegments.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace tamo::volume {

namespace {

std::string segmentOf(DicomFrame const& frame) {
    auto const mark = std::find_if(frame.marks.begin(), frame.marks.end(),
                                   [](auto const& other) { return other.first == "segment"; });
    return mark == frame.marks.end() ? std::string() : mark->second;
}

// A slice's place, how high it lies along the normal, and the segments that have a frame there.
struct Level {
    SlicePlace place;
    double height = 0;
    std::set<std::string> segments;
};

double heightOf(DicomFrame const& frame) {
    return dot(cross(frame.place->directions[0], frame.place->directions[1]), frame.place->position);
}

// Returns the places of all frames, from the lowest to the highest.
std::vector<Level> levelsOf(DicomImage const& image) {
    std::vector<DicomFrame const*> frames;
    for (DicomFrame const& frame : image.frames) {
        frames.push_back(&frame);
    }
    std::stable_sort(frames.begin(), frames.end(),
                     [](DicomFrame const* a, DicomFrame const* b) { return heightOf(*a) < heightOf(*b); });
    // As slices are told apart elsewhere: far less than any slice is thick.
    double const least = 0.01 * image.frames.front().spacing.value_or(std::array<double, 2>{1, 1})[0];
    std::vector<Level> levels;
    for (DicomFrame const* frame : frames) {
        if (levels.empty() || heightOf(*frame) - levels.back().height >= least) {
            levels.push_back({*frame->place, heightOf(*frame), {}});
        }
        levels.back().segments.insert(segmentOf(*frame));
    }
    return levels;
}

// As many frames as these, the left out ones among them, are more than hundreds of segments of a long scan have.
constexpr std::size_t kMostFrames = std::size_t{1} << 18U;

// Fills the gaps that are several times as high as the lowest. That is the step, rather than what the file states of
// it: a wrong one would put empty slices between all.
std::vector<Level> withoutGaps(std::vector<Level> const& levels) {
    double step = 1;
    for (std::size_t i = 1; i < levels.size(); ++i) {
        double const height = levels[i].height - levels[i - 1].height;
        step = i == 1 ? height : std::min(step, height);
    }
    std::vector<Level> all;
    for (Level const& level : levels) {
        double const steps = all.empty() ? 1 : (level.height - all.back().height) / step;
        // What is no whole number of steps is left for the refusal of uneven slices.
        constexpr double kTolerance = 0.05;
        bool const isGap =
            steps > 1.5 && steps < static_cast<double>(kMostFrames) && std::abs(steps - std::round(steps)) < kTolerance;
        double const missing = isGap ? std::round(steps) - 1 : 0;
        Level const below = all.empty() ? level : all.back();
        for (double k = 1; k <= missing && all.size() < kMostFrames; ++k) {
            Level between = below;
            between.segments.clear();
            for (std::size_t i = 0; i < 3; ++i) {
                between.place.position[i] += k / (missing + 1) * (level.place.position[i] - below.place.position[i]);
            }
            all.push_back(between);
        }
        all.push_back(level);
    }
    return all;
}

} // namespace

void addEmptyFrames(DicomImage& image) {
    bool const isComplete = std::all_of(image.frames.begin(), image.frames.end(), [](DicomFrame const& frame) {
        return frame.place && !segmentOf(frame).empty();
    });
    // Pieces of compressed frames are told apart by how many frames there are.
    if (image.modality != "SEG" || !isComplete || image.frames.size() < 2 || image.pixels.isEncapsulated) {
        return;
    }
    std::set<std::string> segments;
    for (DicomFrame const& frame : image.frames) {
        segments.insert(segmentOf(frame));
    }
    std::vector<Level> const levels = withoutGaps(levelsOf(image));
    if (levels.size() > kMostFrames / segments.size()) {
        return;
    }
    DicomFrame empty = image.frames.front();
    empty.index = DicomFrame::kEmpty;
    for (Level const& level : levels) {
        empty.place = level.place;
        for (std::string const& segment : segments) {
            if (level.segments.count(segment) == 0) {
                empty.marks = {{"segment", segment}};
                image.frames.push_back(empty);
            }
        }
    }
}

} // namespace tamo::volume
