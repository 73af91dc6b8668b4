// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeReport.h"

#include "../terminal/numberText.h"
#include "VolumeInput.h"

#include "volume/Orientation.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace tamo::tool {

namespace {

using volume::GridGeometry;
using volume::VolumeHeader;
using volume::VoxelStatistics;

char const* nameOf(volume::VoxelKind kind) {
    switch (kind) {
    case volume::VoxelKind::Mask:
        return "mask";
    case volume::VoxelKind::Labels:
        return "labels";
    case volume::VoxelKind::Grey:
        return "grey";
    }
    return "";
}

std::string assumed(bool isKnown) { return isKnown ? "" : ", assumed: the file does not say"; }

std::string triple(Vector3 const& values) {
    std::ostringstream text;
    text << std::setprecision(6) << values[0] + 0.0 << " " << values[1] + 0.0 << " " << values[2] + 0.0;
    return text.str();
}

// Returns whether the axes are those that their letters say, without a turn.
bool isStraight(std::array<Vector3, 3> const& axes) {
    constexpr double kTurned = 1e-6;
    return std::all_of(axes.begin(), axes.end(), [](Vector3 const& axis) {
        return std::count_if(axis.begin(), axis.end(), [](double value) { return std::abs(value) > kTurned; }) == 1;
    });
}

void printGeometry(GridGeometry const& geometry, std::ostream& out) {
    out << "spacing     " << spacingText(geometry) << assumed(geometry.isSpacingKnown) << "\n";
    if (!geometry.fileUnit.empty() && geometry.fileUnit != "mm") {
        out << "unit        " << geometry.fileUnit << " in the file, mm here\n";
    }
    out << "origin      " << triple(geometry.origin) << " mm to the left, back and top"
        << assumed(geometry.isOriginKnown) << "\n";
    out << "direction   " << volume::orientationLetters(geometry.axes) << assumed(geometry.areAxesKnown) << "\n";
    if (!isStraight(geometry.axes)) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            out << "            "
                << "xyz"[axis] << ": " << triple(geometry.axes[axis]) << "\n";
        }
    }
}

void printSeries(VolumeHeader const& header, std::ostream& out) {
    for (std::size_t i = 0; i < header.series.size(); ++i) {
        volume::SeriesInfo const& series = header.series[i];
        out << "series      " << (series.number.empty() ? series.uid : series.number)
            << (series.description.empty() ? "" : " \"" + series.description + "\"") << ", " << series.slices
            << " slices" << (header.series.size() > 1 && i == header.chosenSeries ? ", this one" : "") << "\n";
    }
    if (header.frames > 1) {
        out << "frames      " << header.frames << ", this is " << header.frame << "\n";
    }
    if (header.channels > 1) {
        out << "channels    " << header.channels << ", this is " << header.channel << "\n";
    }
}

std::string nameOfLabel(VolumeHeader const& header, double value) {
    auto const label = std::find_if(header.labels.begin(), header.labels.end(), [&](volume::LabelName const& name) {
        return name.value == value && name.frame == header.frame;
    });
    return label == header.labels.end() ? "" : label->name;
}

void printValues(VolumeReport const& report, std::ostream& out) {
    VoxelStatistics const& statistics = report.statistics;
    if (statistics.range) {
        out << "range       " << numberText(statistics.range->min) << " .. " << numberText(statistics.range->max)
            << (report.header.valueUnit.empty() ? "" : " " + report.header.valueUnit) << "\n";
    }
    if (statistics.nan > 0) {
        out << "NaN         " << statistics.nan << " voxels\n";
    }
    if (statistics.positiveInfinite + statistics.negativeInfinite > 0) {
        out << "infinite    " << statistics.positiveInfinite << " voxels, and " << statistics.negativeInfinite
            << " negative\n";
    }
    out << "voxels      " << nameOf(report.kind);
    if (!statistics.values) {
        out << ", more than " << VoxelStatistics::kMostValues << " different values\n";
        return;
    }
    out << ", " << statistics.values->size() << " different values\n";
    // More than fit on a screen are better read by a program.
    constexpr std::size_t kShown = 40;
    if (report.kind == volume::VoxelKind::Grey) {
        return;
    }
    for (std::size_t i = 0; i < std::min(kShown, statistics.values->size()); ++i) {
        volume::ValueCount const& count = (*statistics.values)[i];
        std::string const name = nameOfLabel(report.header, count.value);
        out << "            " << numberText(count.value) << ": " << count.voxels << (name.empty() ? "" : ", " + name)
            << "\n";
    }
    if (statistics.values->size() > kShown) {
        out << "            and " << statistics.values->size() - kShown << " more; --json lists all\n";
    }
}

nlohmann::ordered_json geometryJson(GridGeometry const& geometry) {
    return {{"spacing", geometry.spacing},
            {"spacing_known", geometry.isSpacingKnown},
            {"origin", geometry.origin},
            {"origin_known", geometry.isOriginKnown},
            {"axes", geometry.axes},
            {"axes_known", geometry.areAxesKnown},
            {"orientation", volume::orientationLetters(geometry.axes)},
            {"unit", "mm"},
            {"file_unit", geometry.fileUnit}};
}

nlohmann::ordered_json seriesJson(VolumeHeader const& header) {
    auto all = nlohmann::ordered_json::array();
    for (volume::SeriesInfo const& series : header.series) {
        all.push_back({{"number", series.number},
                       {"uid", series.uid},
                       {"description", series.description},
                       {"slices", series.slices}});
    }
    return all;
}

nlohmann::ordered_json valuesJson(VolumeReport const& report) {
    if (!report.statistics.values) {
        return nullptr;
    }
    auto all = nlohmann::ordered_json::array();
    for (volume::ValueCount const& count : *report.statistics.values) {
        nlohmann::ordered_json value{{"value", count.value}, {"voxels", count.voxels}};
        if (std::string const name = nameOfLabel(report.header, count.value); !name.empty()) {
            value["name"] = name;
        }
        all.push_back(std::move(value));
    }
    return all;
}

} // namespace

void printReport(VolumeReport const& report, std::ostream& out) {
    VolumeHeader const& header = report.header;
    out << "format      " << header.format << "\n";
    printSeries(header, out);
    out << "dimensions  " << volume::text(header.size, " x ") << "\n"
        << "type        " << volume::nameOf(header.type) << "\n";
    printGeometry(header.geometry, out);
    if (header.slope != 1.0 || header.intercept != 0.0) {
        out << "scaling     " << header.slope << " * stored + " << header.intercept << "\n";
    }
    printValues(report, out);
    printNotes(header.notes, out);
    out << "bytes       " << report.bytes << "\n";
}

void printJson(VolumeReport const& report, std::ostream& out) {
    VolumeHeader const& header = report.header;
    VoxelStatistics const& statistics = report.statistics;
    nlohmann::ordered_json json{{"format", header.format},
                                {"size", header.size},
                                {"type", std::string(volume::nameOf(header.type))},
                                {"geometry", geometryJson(header.geometry)},
                                {"slope", header.slope},
                                {"intercept", header.intercept},
                                {"value_unit", header.valueUnit},
                                {"kind", nameOf(report.kind)}};
    json["range"] = statistics.range ? nlohmann::ordered_json{statistics.range->min, statistics.range->max}
                                     : nlohmann::ordered_json(nullptr);
    json["nan"] = statistics.nan;
    json["infinite"] = statistics.positiveInfinite + statistics.negativeInfinite;
    json["values"] = valuesJson(report);
    json["series"] = seriesJson(header);
    json["chosen_series"] = header.chosenSeries;
    json["frames"] = header.frames;
    json["frame"] = header.frame;
    json["channels"] = header.channels;
    json["channel"] = header.channel;
    json["notes"] = header.notes;
    json["bytes"] = report.bytes;
    out << json.dump(/*indent=*/2, ' ', /*ensure_ascii=*/false, nlohmann::ordered_json::error_handler_t::replace)
        << "\n";
}

} // namespace tamo::tool
