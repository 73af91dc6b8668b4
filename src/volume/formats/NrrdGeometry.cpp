// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NrrdGeometry.h"

#include "../bytes/parseNumber.h"
#include "headerGeometry.h"

#include <cmath>
#include <set>

namespace tamo::volume {

namespace {

// Returns the signs that turn the coordinates of a named space into LPS; nothing for the spaces of no patient.
std::optional<Vector3> patientSigns(std::string const& space) {
    static std::map<std::string, Vector3> const kSpaces{{"lps", {1, 1, 1}},
                                                        {"lpst", {1, 1, 1}},
                                                        {"left-posterior-superior", {1, 1, 1}},
                                                        {"left-posterior-superior-time", {1, 1, 1}},
                                                        {"ras", {-1, -1, 1}},
                                                        {"rast", {-1, -1, 1}},
                                                        {"right-anterior-superior", {-1, -1, 1}},
                                                        {"right-anterior-superior-time", {-1, -1, 1}},
                                                        {"las", {1, -1, 1}},
                                                        {"last", {1, -1, 1}},
                                                        {"left-anterior-superior", {1, -1, 1}},
                                                        {"left-anterior-superior-time", {1, -1, 1}}};
    auto const found = kSpaces.find(lowerCase(space));
    return found == kSpaces.end() ? std::nullopt : std::optional(found->second);
}

// Returns the lengths, in millimetres, of the units that a field quotes for the given places.
Vector3 unitsOf(VolumeHeader& volume, HeaderText const& text, std::string const& field,
                std::array<std::size_t, 3> const& places) {
    auto const units = quotedTexts(text.text(field, ""));
    Vector3 lengths{1, 1, 1};
    for (std::size_t i = 0; i < 3; ++i) {
        bool const isRepeated = i > 0 && places[i] < units.size() && units[places[i]] == units[places[i - 1]];
        lengths[i] =
            isRepeated ? lengths[i - 1] : millimetresOf(volume, places[i] < units.size() ? units[places[i]] : "");
    }
    return lengths;
}

void applyDirections(VolumeHeader& volume, NrrdHeader const& header, Vector3 const& toLps) {
    std::array<Vector3, 3> steps{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        auto const& direction = header.directions[header.spaceAxes[axis]];
        bool const hasTime = direction.size() > 3 && direction[3] != 0;
        if (direction.size() < 3 || hasTime) {
            header.text.refuse("space directions", "three directions in space");
        }
        steps[axis] = scaled({direction[0], direction[1], direction[2]}, toLps);
    }
    if (!volume.geometry.setSteps(steps)) {
        header.text.refuse("space directions", "three directions, none in the plane of the others,");
    }
}

// Returns the distances of voxels along all axes by the places of the first and the last one: NaN where nothing is
// said.
std::vector<double> spacingsByEnds(NrrdHeader const& header) {
    HeaderText const& text = header.text;
    std::size_t const count = header.sizes.size();
    std::vector<double> spacings(count, std::nan(""));
    if (!text.has("axis mins") || !text.has("axis maxs")) {
        return spacings;
    }
    auto const mins = text.numbers("axis mins", count);
    auto const maxs = text.numbers("axis maxs", count);
    auto const centers = text.words("centers");
    for (std::size_t i = 0; i < count && i < centers.size(); ++i) {
        // The ends are the sides of voxels, or their centres.
        auto const voxels = static_cast<double>(header.sizes[i]);
        std::string const center = lowerCase(centers[i]);
        if (center == "cell" || center == "node") {
            spacings[i] = (maxs[i] - mins[i]) / (center == "cell" ? voxels : voxels - 1);
        }
    }
    return spacings;
}

void applySpacings(VolumeHeader& volume, NrrdHeader const& header) {
    auto const values =
        header.text.has("spacings") ? header.text.numbers("spacings", header.sizes.size()) : spacingsByEnds(header);
    Vector3 spacing{};
    std::size_t known = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        double const value = values[header.spaceAxes[i]];
        // A distance that is not known is spelt nan.
        bool const isKnown = std::isfinite(value) && value != 0;
        spacing[i] = isKnown ? value : 1;
        known += isKnown ? 1 : 0;
    }
    if (known == 0) {
        return;
    }
    Vector3 const units = unitsOf(volume, header.text, "units", header.spaceAxes);
    setSpacing(volume, scaled(spacing, units));
    if (known < 3) {
        volume.geometry.isSpacingKnown = false;
        volume.notes.emplace_back("the spacing is not stated for every axis: 1 is assumed for the others");
    }
}

} // namespace

void applyNrrdGeometry(VolumeHeader& volume, NrrdHeader const& header) {
    HeaderText const& text = header.text;
    std::string const space = text.text("space", "");
    auto const signs = patientSigns(space);
    bool const isInSpace = !header.directions.empty() || text.has("space origin");
    Vector3 toLps = signs.value_or(Vector3{1, 1, 1});
    if (isInSpace) {
        toLps = scaled(toLps, unitsOf(volume, text, "space units", {0, 1, 2}));
    }
    if (header.directions.empty()) {
        applySpacings(volume, header);
    } else {
        applyDirections(volume, header, toLps);
        if (!signs) {
            volume.geometry.areAxesKnown = false;
            volume.notes.push_back(
                (space.empty() ? "the space is not named" : "the space \"" + space + "\" is not that of a patient") +
                std::string(": its axes are taken for those of LPS"));
        }
    }
    if (text.has("space origin")) {
        auto const origin = text.finiteNumbers("space origin", header.spaceDimension);
        volume.geometry.origin = scaled({origin[0], origin[1], origin[2]}, toLps);
        volume.geometry.isOriginKnown = true;
    }
}

void applySegments(VolumeHeader& volume, NrrdHeader const& header) {
    std::set<std::int64_t> segments;
    for (auto const& [key, value] : header.keys) {
        auto const end = key.find('_');
        std::int64_t number = 0;
        if (key.compare(0, 7, "Segment") == 0 && end != std::string::npos && end > 7 &&
            parseNumber(key.substr(7, end - 7), number) && number >= 0) {
            segments.insert(number);
        }
        volume.isLabelMap = volume.isLabelMap || key.compare(0, 13, "Segmentation_") == 0;
    }
    volume.isLabelMap = volume.isLabelMap || !segments.empty();
    for (std::int64_t const number : segments) {
        std::string const prefix = "Segment" + std::to_string(number) + "_";
        auto const textOf = [&](char const* name, std::string const& fallback) {
            auto const found = header.keys.find(prefix + name);
            return found == header.keys.end() ? fallback : trimmed(found->second);
        };
        LabelName label{1, textOf("Name", textOf("ID", prefix.substr(0, prefix.size() - 1))), 0};
        // Files that state no values have a frame of zeros and ones for each segment.
        bool const hasValue = header.keys.count(prefix + "LabelValue") != 0;
        std::string const frame = textOf("Layer", hasValue || volume.frames == 1 ? "0" : std::to_string(number));
        if (!parseNumber(textOf("LabelValue", "1"), label.value) || !std::isfinite(label.value) ||
            !parseNumber(frame, label.frame) || label.frame < 0 || label.frame >= volume.frames) {
            volume.notes.push_back("segment " + std::to_string(number) + " names no value or frame and was left out");
            continue;
        }
        volume.labels.push_back(label);
    }
}

} // namespace tamo::volume
