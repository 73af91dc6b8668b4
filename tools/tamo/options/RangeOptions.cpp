// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "RangeOptions.h"

#include "../terminal/UsageError.h"
#include "OptionValues.h"

namespace tamo::tool {

RangeOptions::RangeOptions(OptionList const& options) {
    options.add("--min", _min,
                "Smallest value of the foreground (default: chosen by what the voxels are, or any with --max)", "V");
    options.add("--max", _max, "Largest value of the foreground, itself included (default: any)", "V");
    options.add("--as", _as,
                "What the voxels are: of labels all but 0 is foreground, of grey values what Otsu's method finds "
                "(default: told by the voxels)",
                "labels|grey");
}

ForegroundWish RangeOptions::read() const {
    ForegroundWish wish;
    if (!_min.empty()) {
        wish.min = parseNumber("--min", _min);
    }
    if (!_max.empty()) {
        wish.max = parseNumber("--max", _max);
    }
    if (wish.min && wish.max && *wish.min > *wish.max) {
        throw UsageError("--min " + _min + ": expected at most --max " + _max);
    }
    if (_as == "labels") {
        wish.kind = volume::VoxelKind::Labels;
    } else if (_as == "grey") {
        wish.kind = volume::VoxelKind::Grey;
    } else if (!_as.empty()) {
        throw UsageError("--as " + _as + ": expected labels or grey");
    }
    if (wish.kind && (wish.min || wish.max)) {
        throw UsageError("--as " + _as + ": expected without --min and --max, which choose the foreground themselves");
    }
    return wish;
}

} // namespace tamo::tool
