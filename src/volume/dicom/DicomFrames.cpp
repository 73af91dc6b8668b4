// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomFrames.h"

#include "../Error.h"
#include "DicomTags.h"
#include "DicomText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tamo::volume {

namespace {

// The datasets that may hold an element of a frame, the one that counts most first.
using Sources = std::vector<DicomDataset const*>;

constexpr std::array kGroups{dicom::kPlanePositionSequence, dicom::kPlaneOrientationSequence,
                             dicom::kPixelMeasuresSequence, dicom::kPixelValueSequence,
                             dicom::kFrameContentSequence,  dicom::kMrEchoSequence,
                             dicom::kMrDiffusionSequence,   dicom::kSegmentIdentificationSequence};

// Each functional group is the only item of a sequence.
void addSources(DicomDataset const& groups, Sources& sources) {
    for (DicomTag const sequence : kGroups) {
        if (!groups.items(sequence).empty()) {
            sources.push_back(&groups.items(sequence).front());
        }
    }
}

Sources sourcesOf(DicomDataset const& dataset, std::int64_t frame) {
    Sources sources;
    auto const& perFrame = dataset.items(dicom::kPerFrameGroups);
    if (static_cast<std::size_t>(frame) < perFrame.size()) {
        addSources(perFrame[static_cast<std::size_t>(frame)], sources);
    }
    auto const& shared = dataset.items(dicom::kSharedGroups);
    if (!shared.empty()) {
        addSources(shared.front(), sources);
    }
    sources.push_back(&dataset);
    return sources;
}

DicomDataset const& holderOf(Sources const& sources, DicomTag tag) {
    auto const found =
        std::find_if(sources.begin(), sources.end(), [tag](DicomDataset const* source) { return source->has(tag); });
    return found == sources.end() ? *sources.back() : **found;
}

// Half of the last decimal that any of the numbers is written with, or 0 where an exponent hides it.
double roundingOf(std::string const& text) {
    if (text.find_first_of("eE") != std::string::npos) {
        return 0;
    }
    std::size_t most = 0;
    std::size_t decimals = 0;
    bool isFraction = false;
    for (char const letter : text + "\\") {
        if (letter == '\\') {
            most = std::max(most, decimals);
            decimals = 0;
            isFraction = false;
        } else if (letter == '.') {
            isFraction = true;
        } else if (isFraction && letter != ' ') {
            ++decimals;
        }
    }
    return 0.5 * std::pow(10.0, -static_cast<double>(most));
}

std::array<Vector3, 2> directionsOf(std::vector<double> const& numbers, std::filesystem::path const& path) {
    std::array<Vector3, 2> directions{};
    // Numbers of few decimals are off by less; what is off by more is no pair of directions.
    constexpr double kTolerance = 0.01;
    bool isGood = true;
    for (std::size_t axis = 0; axis < 2; ++axis) {
        std::copy_n(numbers.begin() + static_cast<std::ptrdiff_t>(3 * axis), 3, directions[axis].begin());
        double const length = std::sqrt(dot(directions[axis], directions[axis]));
        isGood = isGood && std::abs(length - 1) < kTolerance;
        for (double& component : directions[axis]) {
            component /= isGood ? length : 1;
        }
    }
    if (!isGood || std::abs(dot(directions[0], directions[1])) > kTolerance) {
        throw Error(path, "expected an image orientation of two directions at right angles, found others; the file is "
                          "damaged");
    }
    return directions;
}

std::optional<SlicePlace> placeOf(Sources const& sources, std::filesystem::path const& path) {
    DicomDataset const& positionHolder = holderOf(sources, dicom::kPosition);
    std::string const positionText = positionHolder.text(dicom::kPosition);
    std::string const orientationText = holderOf(sources, dicom::kOrientation).text(dicom::kOrientation);
    if (positionText.empty() || orientationText.empty()) {
        return std::nullopt;
    }
    std::vector<double> const position = positionHolder.numbers(dicom::kPosition);
    std::vector<double> const orientation = holderOf(sources, dicom::kOrientation).numbers(dicom::kOrientation);
    if (position.size() != 3 || orientation.size() != 6) {
        throw Error(path, "expected an image position of 3 numbers and an orientation of 6, found others; the file is "
                          "damaged");
    }
    SlicePlace place;
    std::copy(position.begin(), position.end(), place.position.begin());
    place.directions = directionsOf(orientation, path);
    place.rounding = roundingOf(positionText);
    return place;
}

// The element gives the distance between rows first, which is a step in y.
std::optional<std::array<double, 2>> spacingOf(Sources const& sources, DicomTag tag,
                                               std::filesystem::path const& path) {
    DicomDataset const& holder = holderOf(sources, tag);
    if (holder.text(tag).empty()) {
        return std::nullopt;
    }
    std::vector<double> const numbers = holder.numbers(tag);
    if (numbers.size() != 2 || !(numbers[0] > 0) || !(numbers[1] > 0)) {
        throw Error(path, "expected a pixel spacing of two positive numbers, found others; the file is damaged");
    }
    return std::array<double, 2>{numbers[1], numbers[0]};
}

double numberOf(Sources const& sources, DicomTag tag, double missing, std::filesystem::path const& path) {
    DicomDataset const& holder = holderOf(sources, tag);
    std::optional<double> const found = holder.number(tag);
    if (!found && holder.has(tag) && !holder.text(tag).empty()) {
        throw Error(path, "expected a rescale slope and intercept that are numbers, found others; the file is damaged");
    }
    return found.value_or(missing);
}

void readRescale(Sources const& sources, DicomImage const& image, DicomFrame& frame) {
    frame.slope = numberOf(sources, dicom::kRescaleSlope, 1, image.path);
    frame.intercept = numberOf(sources, dicom::kRescaleIntercept, 0, image.path);
    if (image.modality == "RTDOSE") {
        frame.slope = numberOf(sources, dicom::kDoseScaling, 1, image.path);
    }
    // Anything near the largest float would make voxels infinite.
    constexpr double kMost = 1e30;
    if (frame.slope == 0.0 || std::abs(frame.slope) > kMost || std::abs(frame.intercept) > kMost) {
        throw Error(image.path, "expected a rescale slope other than 0 and an intercept, found " +
                                    shownNumber(frame.slope) + " and " + shownNumber(frame.intercept) +
                                    "; the file is damaged");
    }
}

std::string markText(DicomDataset const& holder, DicomTag tag) {
    std::string text = holder.text(tag);
    std::optional<double> const number = text.empty() ? holder.number(tag) : std::nullopt;
    if (number) {
        bool const isWhole = std::abs(*number) < 1e15 && *number == std::floor(*number);
        text = isWhole ? std::to_string(static_cast<std::int64_t>(*number)) : std::to_string(*number);
    }
    return text;
}

void readMarks(Sources const& sources, DicomFrame& frame) {
    struct Mark {
        DicomTag tag;
        char const* name;
    };
    constexpr std::array kMarks{Mark{dicom::kReferencedSegment, "segment"},
                                Mark{dicom::kTemporalPositionIndex, "time"},
                                Mark{dicom::kTemporalPosition, "time"},
                                Mark{dicom::kEffectiveEchoTime, "echo time"},
                                Mark{dicom::kEchoTime, "echo time"},
                                Mark{dicom::kEchoNumbers, "echo number"},
                                Mark{dicom::kDiffusionBValue, "b-value"},
                                Mark{dicom::kTriggerTime, "trigger time"},
                                Mark{dicom::kAcquisitionNumber, "acquisition"},
                                Mark{dicom::kImageType, "image type"}};
    for (Mark const& mark : kMarks) {
        std::string text = markText(holderOf(sources, mark.tag), mark.tag);
        if (!text.empty()) {
            frame.marks.emplace_back(mark.name, std::move(text));
        }
    }
    int dimension = 0;
    for (double const index : holderOf(sources, dicom::kDimensionIndexValues).numbers(dicom::kDimensionIndexValues)) {
        frame.marks.emplace_back("dimension " + std::to_string(++dimension),
                                 std::to_string(static_cast<std::int64_t>(index)));
    }
}

// Doses state one place, and how far the planes lie above the first.
void placePlanes(DicomDataset const& dataset, DicomImage& image) {
    std::vector<double> const offsets = dataset.numbers(dicom::kGridFrameOffsets);
    if (!image.frames.front().place || offsets.size() != image.frames.size()) {
        return;
    }
    SlicePlace const first = *image.frames.front().place;
    Vector3 const normal = cross(first.directions[0], first.directions[1]);
    for (std::size_t k = 0; k < offsets.size(); ++k) {
        SlicePlace place = first;
        for (std::size_t i = 0; i < 3; ++i) {
            place.position[i] += (offsets[k] - offsets[0]) * normal[i];
        }
        image.frames[k].place = place;
    }
    image.isPlainMultiFrame = false;
}

} // namespace

void readFrames(DicomDataset const& dataset, DicomImage& image) {
    std::int64_t const count = dataset.whole(dicom::kNumberOfFrames).value_or(1);
    image.frames.clear();
    image.isPlainMultiFrame = count > 1 && dataset.items(dicom::kPerFrameGroups).empty();
    for (std::int64_t index = 0; index < count; ++index) {
        Sources const sources = sourcesOf(dataset, index);
        DicomFrame frame;
        frame.index = index;
        frame.place = placeOf(sources, image.path);
        frame.spacing = spacingOf(sources, dicom::kPixelSpacing, image.path);
        if (!frame.spacing) {
            frame.spacing = spacingOf(sources, dicom::kImagerPixelSpacing, image.path);
            image.isDetectorSpacing = frame.spacing.has_value();
        }
        readRescale(sources, image, frame);
        if (image.frames.empty()) {
            DicomDataset const& holder = holderOf(sources, dicom::kSpacingBetweenSlices);
            image.sliceDistance = holder.number(dicom::kSpacingBetweenSlices);
            image.valueUnit = holderOf(sources, dicom::kRescaleType).text(dicom::kRescaleType);
        }
        if (!image.isPlainMultiFrame) {
            readMarks(sources, frame);
        }
        image.frames.push_back(std::move(frame));
    }
    placePlanes(dataset, image);
}

} // namespace tamo::volume
