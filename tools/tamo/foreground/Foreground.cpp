// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Foreground.h"

#include "../terminal/UserError.h"
#include "../terminal/numberText.h"

#include "volume/statistics/OtsuThreshold.h"

#include <cmath>
#include <limits>

namespace tamo::tool {

namespace {

using volume::ValueRange;
using volume::VoxelKind;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The larger of the two values of a mask.
ForegroundChoice chooseOfMask(ValueRange const& found) {
    return {{{found.max, found.max}, false}, "a mask of " + numberText(found.min) + " and " + numberText(found.max)};
}

ForegroundChoice chooseByThreshold(volume::Volume const& volume, ValueRange const& found,
                                   volume::Progress const& progress) {
    double const threshold = computeOtsuThreshold(volume, found, progress);
    return {{{threshold, kInfinity}, false}, "grey values, --min by Otsu's method"};
}

} // namespace

std::string text(Foreground const& foreground) {
    ValueRange const& range = foreground.range;
    if (foreground.isAllButZero) {
        return "all but 0";
    }
    if (range.min == range.max) {
        return numberText(range.min);
    }
    if (std::isinf(range.min)) {
        return "up to " + numberText(range.max);
    }
    return std::isinf(range.max) ? "from " + numberText(range.min)
                                 : numberText(range.min) + " .. " + numberText(range.max);
}

ForegroundChoice chooseForeground(volume::Volume const& volume, volume::VoxelStatistics const& statistics,
                                  ForegroundWish const& wish, std::string const& path,
                                  volume::Progress const& progress) {
    if (wish.min || wish.max) {
        // A bound alone asks for everything on its side.
        return {{{wish.min.value_or(-kInfinity), wish.max.value_or(kInfinity)}, false}, ""};
    }
    if (!statistics.range) {
        throw UserError(path + ": expected at least one voxel with a finite value, found none");
    }
    VoxelKind const kind = wish.kind ? *wish.kind : findVoxelKind(volume, statistics, progress);
    if (kind == VoxelKind::Labels) {
        return {{{}, true}, wish.kind ? "labels, as --as says" : "labels; --as grey for a threshold"};
    }
    ValueRange const found = *statistics.range;
    if (found.min == found.max) {
        throw UserError(path + ": expected two different values to choose --min between, found " +
                        numberText(found.min) + " alone");
    }
    return kind == VoxelKind::Mask ? chooseOfMask(found) : chooseByThreshold(volume, found, progress);
}

} // namespace tamo::tool
