// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "RangeOptions.h"

#include "../terminal/UsageError.h"
#include "OptionValues.h"

namespace tamo::tool {

RangeOptions::RangeOptions(CLI::App& command) {
    command
        .add_option("--min", _min, "Smallest value of the foreground (default: by Otsu's method, or any with --max)")
        ->type_name("V");
    command.add_option("--max", _max, "Largest value of the foreground, itself included (default: any)")
        ->type_name("V");
}

RangeOptions::Limits RangeOptions::read() const {
    Limits limits;
    if (!_min.empty()) {
        limits.min = parseNumber("--min", _min);
    }
    if (!_max.empty()) {
        limits.max = parseNumber("--max", _max);
    }
    if (limits.min && limits.max && *limits.min > *limits.max) {
        throw UsageError("--min " + _min + ": expected at most --max " + _max);
    }
    return limits;
}

} // namespace tamo::tool
