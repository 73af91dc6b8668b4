// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomStack.h"

#include "../Error.h"
#include "../chooseOne.h"
#include "DicomMarks.h"
#include "DicomText.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace tamo::volume {

namespace {

// How far lengths and directions may differ and still be called equal.
constexpr double kTolerance = 1e-3;

// Finds its way in the images of a series.
class Series {
  public:
    Series(VolumeSource const& asked, std::vector<DicomImage> const& found) : source(asked), images(found) {}

    [[nodiscard]] DicomImage const& imageOf(StackSlice const& slice) const { return images[slice.image]; }
    [[nodiscard]] DicomFrame const& frameOf(StackSlice const& slice) const {
        return images[slice.image].frames[slice.frame];
    }
    [[nodiscard]] SlicePlace const& placeOf(StackSlice const& slice) const { return *frameOf(slice).place; }
    // The file, below the folder that was asked for, and the frame where there are several.
    [[nodiscard]] std::string nameOf(StackSlice const& slice) const {
        std::filesystem::path const& path = imageOf(slice).path;
        std::filesystem::path const below = path.lexically_relative(
            std::filesystem::is_directory(source.path) ? source.path : source.path.parent_path());
        std::string const name = below.empty() || *below.begin() == ".." ? path.filename().string() : below.string();
        return imageOf(slice).frames.size() == 1 ? name : "frame " + std::to_string(slice.frame) + " of " + name;
    }

    VolumeSource const& source;
    std::vector<DicomImage> const& images;
};

Vector3 difference(Vector3 const& a, Vector3 const& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

double length(Vector3 const& a) { return std::sqrt(dot(a, a)); }

std::vector<StackSlice> allSlices(std::vector<DicomImage> const& images) {
    std::vector<StackSlice> slices;
    for (std::size_t image = 0; image < images.size(); ++image) {
        for (std::size_t frame = 0; frame < images[image].frames.size(); ++frame) {
            slices.push_back({image, frame});
        }
    }
    return slices;
}

// Refuses slices that cannot lie on one grid.
void checkAlike(Series const& series, std::vector<StackSlice> const& slices) {
    auto const refuse = [&](StackSlice const& slice, std::string const& what) {
        throw Error(series.source.path, "expected slices of one " + what + ", found another in " +
                                            series.nameOf(slice) + " than in " + series.nameOf(slices.front()) +
                                            "; localizers and scouts must be left out");
    };
    DicomImage const& firstImage = series.imageOf(slices.front());
    DicomFrame const& first = series.frameOf(slices.front());
    for (StackSlice const& slice : slices) {
        DicomImage const& image = series.imageOf(slice);
        DicomFrame const& frame = series.frameOf(slice);
        if (image.columns != firstImage.columns || image.rows != firstImage.rows) {
            refuse(slice, "size");
        }
        if (frame.place.has_value() != first.place.has_value()) {
            StackSlice const& bare = frame.place ? slices.front() : slice;
            throw Error(series.source.path,
                        "expected a position and an orientation of every slice, found none in " + series.nameOf(bare));
        }
        for (std::size_t axis = 0; axis < 2; ++axis) {
            for (std::size_t i = 0; frame.place && i < 3; ++i) {
                double const turn = frame.place->directions[axis][i] - first.place->directions[axis][i];
                if (std::abs(turn) > kTolerance) {
                    refuse(slice, "orientation");
                }
            }
            if (frame.spacing.has_value() != first.spacing.has_value() ||
                (frame.spacing &&
                 std::abs((*frame.spacing)[axis] - (*first.spacing)[axis]) > kTolerance * (*first.spacing)[axis])) {
                refuse(slice, "pixel spacing");
            }
        }
    }
}

// Puts the slices into the order of their places, those at one place together.
std::vector<std::vector<StackSlice>> slicesByPlace(Series const& series, std::vector<StackSlice> slices) {
    SlicePlace const& first = series.placeOf(slices.front());
    Vector3 const normal = cross(first.directions[0], first.directions[1]);
    auto const height = [&](StackSlice const& slice) { return dot(normal, series.placeOf(slice).position); };
    std::stable_sort(slices.begin(), slices.end(),
                     [&](StackSlice const& a, StackSlice const& b) { return height(a) < height(b); });
    // Far less than any slice is thick.
    double const least = 0.01 * series.frameOf(slices.front()).spacing.value_or(std::array<double, 2>{1, 1})[0];
    std::vector<std::vector<StackSlice>> places;
    for (StackSlice const& slice : slices) {
        if (places.empty() || height(slice) - height(places.back().front()) >= least) {
            places.emplace_back();
        }
        places.back().push_back(slice);
    }
    return places;
}

// Returns the step from slice to slice, after a check that all steps are equal.
Vector3 commonStep(Series const& series, std::vector<StackSlice> const& slices) {
    std::vector<Vector3> steps;
    // Some writers leave out zeros at the end: the slice with the most decimals shows how exact all are.
    double rounding = series.placeOf(slices.front()).rounding;
    for (std::size_t i = 0; i < slices.size(); ++i) {
        rounding = std::min(rounding, series.placeOf(slices[i]).rounding);
        if (i > 0) {
            steps.push_back(difference(series.placeOf(slices[i]).position, series.placeOf(slices[i - 1]).position));
        }
    }
    std::vector<Vector3> sorted = steps;
    // Of two in the middle the smaller: the other one is a gap.
    auto const middle = sorted.begin() + static_cast<std::ptrdiff_t>((sorted.size() - 1) / 2);
    std::nth_element(sorted.begin(), middle, sorted.end(),
                     [](Vector3 const& a, Vector3 const& b) { return dot(a, a) < dot(b, b); });
    Vector3 const usual = *middle;
    // Positions that are written with few decimals are half a digit off each, and two steps hold four of them. Within
    // 1 % of the step, so that positions in whole millimetres do not hide a gap.
    double const tolerance =
        std::max(kTolerance * length(usual), std::min(4 * rounding, 10 * kTolerance * length(usual)));
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (length(difference(steps[i], usual)) <= tolerance) {
            continue;
        }
        double const ratio = length(steps[i]) / length(usual);
        bool const isGap = ratio > 1.5 && std::abs(ratio - std::round(ratio)) < 0.1;
        throw Error(series.source.path, "expected slices " + shownNumber(length(usual)) + " mm apart, found " +
                                            shownNumber(length(steps[i])) + " mm between " + series.nameOf(slices[i]) +
                                            " and " + series.nameOf(slices[i + 1]) +
                                            (!isGap        ? ": the slices are not evenly spaced"
                                             : ratio < 2.5 ? ": a slice is missing"
                                                           : ": slices are missing"));
    }
    Vector3 step = difference(series.placeOf(slices.back()).position, series.placeOf(slices.front()).position);
    for (double& component : step) {
        component /= static_cast<double>(steps.size());
    }
    return step;
}

Vector3 scaled(Vector3 const& a, double factor) { return {a[0] * factor, a[1] * factor, a[2] * factor}; }

void setGeometry(Series const& series, DicomStack& stack, std::array<Vector3, 3> const& steps) {
    if (!stack.geometry.setSteps(steps)) {
        throw Error(series.source.path, "expected slices behind one another, found slices that lie in one plane");
    }
    SlicePlace const& first = series.placeOf(stack.slices.front());
    stack.geometry.origin = first.position;
    stack.geometry.isOriginKnown = true;
    if (!series.frameOf(stack.slices.front()).spacing) {
        stack.geometry.isSpacingKnown = false;
        stack.notes.emplace_back("no pixel spacing is stated; 1 mm is assumed");
    }
}

void stackByPlace(Series const& series, DicomStack& stack) {
    stack.slices =
        chooseFrame({series.source, series.images, [&series](StackSlice const& slice) { return series.nameOf(slice); }},
                    slicesByPlace(series, allSlices(series.images)), stack);
    if (stack.slices.size() < 2) {
        throw Error(series.source.path, "expected a volume of several slices, found a single 2-D slice");
    }
    SlicePlace const& first = series.placeOf(stack.slices.front());
    auto const spacing = series.frameOf(stack.slices.front()).spacing.value_or(std::array<double, 2>{1, 1});
    setGeometry(series, stack,
                {scaled(first.directions[0], spacing[0]), scaled(first.directions[1], spacing[1]),
                 commonStep(series, stack.slices)});
}

// Refuses numbers that do not go in equal steps: where nothing states a place, only they show that a slice is missing.
void checkNumbers(Series const& series, std::vector<StackSlice> const& slices) {
    auto const numberOf = [&](std::size_t i) {
        return static_cast<double>(series.imageOf(slices[i]).instance.value_or(0));
    };
    if (series.images.size() < slices.size()) {
        return;
    }
    for (std::size_t i = 2; i < slices.size(); ++i) {
        bool const isEarlier = numberOf(i) - numberOf(i - 1) < numberOf(i - 1) - numberOf(i - 2);
        if (numberOf(i) - numberOf(i - 1) != numberOf(i - 1) - numberOf(i - 2)) {
            std::size_t const wide = isEarlier ? i - 1 : i;
            throw Error(series.source.path, "expected slices with positions, or with numbers in equal steps, found "
                                            "no positions and the numbers " +
                                                shownNumber(numberOf(wide - 1)) + " and " +
                                                shownNumber(numberOf(wide)) + " of " + series.nameOf(slices[wide - 1]) +
                                                " and " + series.nameOf(slices[wide]) + ": a slice is missing");
        }
    }
}

// The slices of files that state no place: in the order of their numbers, at distances that are assumed.
void stackByNumber(Series const& series, DicomStack& stack) {
    stack.slices = allSlices(series.images);
    auto const key = [&series](StackSlice const& slice) {
        return std::make_pair(series.imageOf(slice).instance.value_or(0), slice.frame);
    };
    std::stable_sort(stack.slices.begin(), stack.slices.end(),
                     [&key](StackSlice const& a, StackSlice const& b) { return key(a) < key(b); });
    for (std::size_t i = 1; i < stack.slices.size(); ++i) {
        if (key(stack.slices[i]) == key(stack.slices[i - 1])) {
            throw Error(series.source.path, "expected slices with positions or with numbers of their own, found "
                                            "neither in " +
                                                series.nameOf(stack.slices[i - 1]) + " and " +
                                                series.nameOf(stack.slices[i]));
        }
    }
    checkNumbers(series, stack.slices);
    DicomImage const& image = series.imageOf(stack.slices.front());
    DicomFrame const& first = series.frameOf(stack.slices.front());
    double const distance = std::abs(image.sliceDistance.value_or(0));
    bool const isSpacingKnown = first.spacing && distance > 0;
    auto const spacing = first.spacing.value_or(std::array<double, 2>{1, 1});
    stack.geometry.spacing = {spacing[0], spacing[1], distance > 0 ? distance : 1};
    stack.geometry.isSpacingKnown = isSpacingKnown;
    stack.notes.emplace_back("no slice states where it lies; their order is that of their numbers, their origin and "
                             "axes are assumed");
    if (!isSpacingKnown) {
        stack.notes.emplace_back(first.spacing ? "no distance of slices is stated; 1 mm is assumed"
                                               : "no pixel spacing is stated; 1 mm is assumed");
    }
}

// A file of several frames that states one place: they follow one another along the normal, as far as is known.
void stackPlainFrames(Series const& series, DicomStack& stack) {
    DicomImage const& image = series.images.front();
    stack.slices = allSlices(series.images);
    DicomFrame const& first = image.frames.front();
    if (!first.place) {
        stackByNumber(series, stack);
        return;
    }
    double const stated = image.sliceDistance.value_or(0);
    double const distance = stated == 0 ? 1 : stated;
    auto const spacing = first.spacing.value_or(std::array<double, 2>{1, 1});
    auto const& directions = first.place->directions;
    setGeometry(series, stack,
                {scaled(directions[0], spacing[0]), scaled(directions[1], spacing[1]),
                 scaled(cross(directions[0], directions[1]), distance)});
    stack.notes.push_back("frames are taken to follow one another along the normal, " + shownNumber(distance) +
                          " mm apart, as the file states no place of each");
    if (stated == 0) {
        stack.geometry.isSpacingKnown = false;
        stack.notes.emplace_back("no distance of slices is stated; 1 mm is assumed");
    }
}

} // namespace

DicomStack stackSlices(VolumeSource const& source, std::vector<DicomImage> const& images) {
    Series const series(source, images);
    DicomStack stack;
    auto const plain =
        std::find_if(images.begin(), images.end(), [](DicomImage const& image) { return image.isPlainMultiFrame; });
    if (plain != images.end() && images.size() > 1) {
        throw Error(source.path, "expected slices or one file of several frames, found " +
                                     std::to_string(images.size()) + " files, of several frames each, such as " +
                                     plain->path.filename().string() + "; open one of them");
    }
    checkAlike(series, allSlices(images));
    if (plain != images.end()) {
        stackPlainFrames(series, stack);
    } else if (images.front().frames.front().place) {
        stackByPlace(series, stack);
    } else {
        stackByNumber(series, stack);
    }
    if (stack.frames == 1) {
        static_cast<void>(chooseOne(source.path, "frame", 1, source.frame));
    }
    return stack;
}

} // namespace tamo::volume
