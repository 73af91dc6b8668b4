// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "DicomStack.h"

#include <functional>

namespace tamo::volume {

/// The series whose slices are chosen from.
struct MarkedSeries {
    VolumeSource const& source;
    std::vector<DicomImage> const& images;
    /// How a slice is called in errors.
    std::function<std::string(StackSlice const&)> nameOf;
};

/// Picks one slice at each place: the only one, or those of the frame that the source names where something, such as
/// the echo time, tells the slices at every place apart in the same way. Notes in `stack` how many frames there are.
/// Throws `Error` for doubled slices, and where the source names no frame or one that does not exist.
std::vector<StackSlice> chooseFrame(MarkedSeries const& series, std::vector<std::vector<StackSlice>> const& places,
                                    DicomStack& stack);

} // namespace tamo::volume
