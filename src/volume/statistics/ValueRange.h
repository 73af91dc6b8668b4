// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo::volume {

/// A range of voxel values, both ends included.
struct ValueRange {
    double min;
    double max;
};

} // namespace tamo::volume
