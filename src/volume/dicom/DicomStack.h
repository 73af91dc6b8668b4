// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../GridGeometry.h"
#include "../VolumeSource.h"
#include "DicomImage.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tamo::volume {

/// A frame of an image of the series.
struct StackSlice {
    std::size_t image = 0;
    std::size_t frame = 0;
};

/// The slices of a volume in their order, and where they lie.
struct DicomStack {
    std::vector<StackSlice> slices;
    GridGeometry geometry;
    /// How many volumes the series holds at the same places, and which of them this is.
    std::int64_t frames = 1;
    std::int64_t frame = 0;
    /// The segment in each of the frames, where that is what tells them apart; empty else.
    std::vector<std::string> segments;
    std::vector<std::string> notes;
};

/// Orders the slices of a series along their common normal, or by their numbers where none states a place. The step
/// from slice to slice, not the normal, is the third axis. Throws `Error`, with the slices' names, where slices are
/// missing, doubled or of different orientation, and where the source has to choose a frame.
DicomStack stackSlices(VolumeSource const& source, std::vector<DicomImage> const& images);

} // namespace tamo::volume
