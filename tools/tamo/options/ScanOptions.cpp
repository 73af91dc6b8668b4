// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ScanOptions.h"

#include "../terminal/UsageError.h"
#include "OptionValues.h"

namespace tamo::tool {

ScanOptions::ScanOptions(OptionList const& options) {
    options.add("--step", _step, "Use every K-th voxel along each axis", "K", OptionList::Value::HasDefault);
    options.add("--box", _box, "First and last voxel of the box to draw, both included (default: all)",
                "X0,Y0,Z0,X1,Y1,Z1");
}

ScanRegion ScanOptions::read() const {
    ScanRegion const region{static_cast<int>(parseWhole("--step", _step, 1, kMostVoxels)), readBox()};
    if (auto const fault = region.faultAnywhere()) {
        throw UsageError(*fault);
    }
    return region;
}

std::optional<volume::Box> ScanOptions::readBox() const {
    if (_box.empty()) {
        return {};
    }
    // A number that no axis has would overflow the sides.
    constexpr int kLast = kMostVoxels - 1;
    std::string const expected =
        "six whole numbers X0,Y0,Z0,X1,Y1,Z1 from 0 to " + std::to_string(kLast) + ", the first voxel and the last";
    auto const v = parseWholes("--box", _box, ',', 6, 0, kLast, expected);
    volume::Box const box{{v[0], v[1], v[2]}, {v[3], v[4], v[5]}};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (box.first[axis] > box.last[axis]) {
            throw UsageError("--box " + _box + ": expected " + expected + ", which must not lie before it");
        }
    }
    return box;
}

} // namespace tamo::tool
