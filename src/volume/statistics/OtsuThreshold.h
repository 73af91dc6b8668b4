// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "../Volume.h"
#include "ValueRange.h"

namespace tamo::volume {

/// Returns the value that splits the histogram of `range` into two classes of least variance (Otsu, "A threshold
/// selection method from gray-level histograms", 1979), or the range's end where all values are equal. Values from the
/// threshold on belong to the upper class; those that are not finite belong to none, those outside of the range to its
/// ends. Values are stored numbers scaled as the header says. Throws `Cancelled`.
double computeOtsuThreshold(Volume const& volume, ValueRange range, Progress const& progress);

} // namespace tamo::volume
