// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeOptions.h"

#include "../terminal/UsageError.h"
#include "../volume/ScalarType.h"
#include "OptionValues.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

namespace tamo::tool {

namespace {

template <typename T> std::array<T, 3> triple(std::vector<T> const& values) {
    return {values[0], values[1], values[2]};
}

std::string typeNames() {
    std::vector<std::string> names;
    names.reserve(kScalarTypes.size());
    for (ScalarType const& type : kScalarTypes) {
        names.emplace_back(type.name);
    }
    return alternatives(names);
}

} // namespace

VolumeOptions::VolumeOptions(CLI::App& command) {
    command.add_option("volume", _volume, "File or folder of the volume")->required()->type_name("VOLUME");
    command.add_option("--dims", _dims, "Bare voxels: their number along x, y and z, each at least 2, x fastest")
        ->type_name("X,Y,Z");
    command.add_option("--type", _type, "Bare voxels: " + typeNames())->type_name("TYPE");
    command.add_option("--header", _header, "Bare voxels: bytes before the first one (default 0)")->type_name("BYTES");
    command.add_flag("--big-endian", _isBigEndian, "Bare voxels: the most significant byte comes first");
    command.add_option("--spacing", _spacing, "Distance between voxels, in place of the file's")->type_name("X,Y,Z");
}

RawLayout VolumeOptions::readLayout() const {
    if (_dims.empty() || _type.empty()) {
        throw UsageError(std::string(_dims.empty() ? "--dims" : "--type") +
                         ": expected with bare voxels, together with " + (_dims.empty() ? "--type" : "--dims"));
    }
    RawLayout layout;
    layout.size = triple(parseWholes("--dims", _dims, ',', 3, 2, kMostVoxels,
                                     "three whole numbers from 2 to " + std::to_string(kMostVoxels) + ": X,Y,Z"));
    auto const type = std::find_if(kScalarTypes.begin(), kScalarTypes.end(),
                                   [this](ScalarType const& candidate) { return candidate.name == _type; });
    if (type == kScalarTypes.end()) {
        throw UsageError("--type " + _type + ": expected " + typeNames());
    }
    layout.vtkType = type->vtkType;
    layout.isBigEndian = _isBigEndian;
    // Files have signed 64-bit sizes.
    constexpr std::int64_t kMostBytes = std::numeric_limits<std::int64_t>::max();
    layout.headerBytes =
        _header.empty() ? 0 : static_cast<std::uint64_t>(parseWhole("--header", _header, 0, kMostBytes));
    return layout;
}

VolumeSource VolumeOptions::read() const {
    VolumeSource source;
    source.path = _volume;
    if (!_dims.empty() || !_type.empty() || !_header.empty() || _isBigEndian) {
        source.raw = readLayout();
    }
    if (!_spacing.empty()) {
        std::string const expected = "three positive numbers: X,Y,Z";
        source.spacing = triple(parseNumbers("--spacing", _spacing, ',', 3, expected));
        if (*std::min_element(source.spacing->begin(), source.spacing->end()) <= 0) {
            throw UsageError("--spacing " + _spacing + ": expected " + expected);
        }
    }
    return source;
}

} // namespace tamo::tool
