// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "ValueRange.h"
#include "Volume.h"

#include <string>

namespace tamo::tool {

/// Returns the smallest and the largest finite value. Throws `UserError`, naming `path`, where there is none.
ValueRange computeValueRange(Volume const& volume, std::string const& path);

/// Returns the value that splits the histogram of `range` into two classes of least variance (Otsu, "A threshold
/// selection method from gray-level histograms", 1979), or the range's end where all values are equal. Values from the
/// threshold on belong to the upper class.
double computeOtsuThreshold(Volume const& volume, ValueRange range);

/// Returns a value as people write it: whole numbers in full, others with nine digits.
std::string numberText(double value);

} // namespace tamo::tool
