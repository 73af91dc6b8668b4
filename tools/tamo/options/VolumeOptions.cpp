// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeOptions.h"

#include "../terminal/UsageError.h"
#include "OptionValues.h"

#include "volume/Orientation.h"
#include "volume/openVolume.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

namespace tamo::tool {

namespace {

using volume::kScalarTypes;

template <typename T, typename U> std::array<T, 3> triple(std::vector<U> const& values) {
    return {values[0], values[1], values[2]};
}

std::string typeNames() {
    std::vector<std::string> names;
    names.reserve(kScalarTypes.size());
    for (volume::ScalarTypeInfo const& type : kScalarTypes) {
        names.emplace_back(type.name);
    }
    return alternatives(names);
}

} // namespace

std::string volumeFormatsHelp() { return "Volumes: " + volume::supportedFormats() + ".\n"; }

VolumeOptions::VolumeOptions(OptionList const& options) {
    options.add("volume", _volume, "File or folder of the volume", "VOLUME", OptionList::Value::Required);
    options.add("--frame", _frame, "Which of several volumes in a file, from 0", "T");
    options.add("--channel", _channel, "Which of several channels, from 0", "C");
    options.add("--series", _series, "Which of several DICOM series: its number or UID", "N|UID");
    options.add("--segment", _segment, "Which segment of a segmentation, by its name", "NAME");
    options.add("--spacing", _spacing, "Millimetres between voxels, in place of the file's", "X,Y,Z");
    options.add("--orientation", _orientation,
                "Where x, y and z lead, for files that do not say: to a patient's Right or Left, Anterior or "
                "Posterior, Superior or Inferior (default LPS)",
                "LPS|RAS|...");
    options.add("--dims", _dims, "Bare voxels: their number along x, y and z, each at least 2, x fastest", "X,Y,Z");
    options.add("--type", _type, "Bare voxels: " + typeNames(), "TYPE");
    options.add("--header", _header, "Bare voxels: bytes before the first one (default 0)", "BYTES");
    options.addFlag("--big-endian", _isBigEndian, "Bare voxels: the most significant byte comes first");
}

volume::RawLayout VolumeOptions::readLayout() const {
    if (_dims.empty() || _type.empty()) {
        throw UsageError(std::string(_dims.empty() ? "--dims" : "--type") +
                         ": expected with bare voxels, together with " + (_dims.empty() ? "--type" : "--dims"));
    }
    volume::RawLayout layout;
    layout.size =
        triple<std::int64_t>(parseWholes("--dims", _dims, ',', 3, 2, kMostVoxels,
                                         "three whole numbers from 2 to " + std::to_string(kMostVoxels) + ": X,Y,Z"));
    auto const type = std::find_if(kScalarTypes.begin(), kScalarTypes.end(),
                                   [this](volume::ScalarTypeInfo const& candidate) { return candidate.name == _type; });
    if (type == kScalarTypes.end()) {
        throw UsageError("--type " + _type + ": expected " + typeNames());
    }
    layout.type = type->type;
    layout.isBigEndian = _isBigEndian;
    // Files have signed 64-bit sizes.
    constexpr std::int64_t kMostBytes = std::numeric_limits<std::int64_t>::max();
    layout.headerBytes =
        _header.empty() ? 0 : static_cast<std::uint64_t>(parseWhole("--header", _header, 0, kMostBytes));
    return layout;
}

std::optional<std::int64_t> VolumeOptions::readIndex(std::string const& option, std::string const& text) {
    if (text.empty()) {
        return {};
    }
    return parseWhole(option, text, 0, kMostVoxels);
}

volume::VolumeSource VolumeOptions::read() const {
    volume::VolumeSource source;
    source.path = _volume;
    source.frame = readIndex("--frame", _frame);
    source.channel = readIndex("--channel", _channel);
    source.series = _series;
    source.segment = _segment;
    if (!_dims.empty() || !_type.empty() || !_header.empty() || _isBigEndian) {
        source.raw = readLayout();
    }
    if (!_spacing.empty()) {
        std::string const expected = "three positive numbers: X,Y,Z";
        source.spacing = triple<double>(parseNumbers("--spacing", _spacing, ',', 3, expected));
        if (*std::min_element(source.spacing->begin(), source.spacing->end()) <= 0) {
            throw UsageError("--spacing " + _spacing + ": expected " + expected);
        }
    }
    if (!_orientation.empty()) {
        source.axes = volume::parseOrientation(_orientation);
        if (!source.axes) {
            throw UsageError("--orientation " + _orientation +
                             ": expected three letters, one of R and L, one of A and P, one of S and I, such as LPS");
        }
    }
    return source;
}

} // namespace tamo::tool
