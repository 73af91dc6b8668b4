// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ScanRegion.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tamo::tool {

namespace {

using volume::Box;
using volume::Size3;

std::string boxText(Box const& box) {
    return "--box " + volume::text(box.first, ",") + "," + volume::text(box.last, ",");
}

// Returns what keeps a box from being scanned, wherever it lies; `name` says whose it is.
std::optional<std::string> faultOfBox(Box const& box, int step, std::string const& name) {
    Size3 const sides = box.sides();
    std::int64_t const smallest = *std::min_element(sides.begin(), sides.end());
    if (step > smallest) {
        return "--step " + std::to_string(step) + ": expected at most " + std::to_string(smallest) +
               ", the smallest side of the box";
    }
    // The scan takes sides, and the address distance of two slices, as ints.
    std::int64_t const longest = *std::max_element(sides.begin(), sides.end());
    if (longest > std::numeric_limits<int>::max()) {
        return name + ": expected sides of less than 2^31 voxels, found " + std::to_string(longest) +
               "; give a smaller --box";
    }
    if (sides[0] * sides[1] > std::numeric_limits<int>::max()) {
        return name + ": expected slices of less than 2^31 voxels, found " + std::to_string(sides[0]) + " x " +
               std::to_string(sides[1]) + "; give a smaller --box";
    }
    return {};
}

} // namespace

Box ScanRegion::boxIn(Size3 const& size) const { return box.value_or(volume::wholeOf(size)); }

std::optional<std::string> ScanRegion::faultIn(Size3 const& size, std::string const& name) const {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (box && box->last[axis] >= size[axis]) {
            return boxText(*box) + ": expected voxels inside the volume of " + volume::text(size, " x ");
        }
    }
    return faultOfBox(boxIn(size), step, name);
}

std::optional<std::string> ScanRegion::faultAnywhere() const {
    return box ? faultOfBox(*box, step, boxText(*box)) : std::nullopt;
}

} // namespace tamo::tool
