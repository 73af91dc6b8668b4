// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../VolumeHeader.h"
#include "../VolumeSource.h"
#include "DicomImage.h"

#include <vector>

namespace tamo::volume {

/// The images of one series, and all series that there were.
struct ChosenSeries {
    std::vector<DicomImage> images;
    std::vector<SeriesInfo> series;
    std::size_t chosen = 0;
};

/// Picks the series that the source names, or the only one. Throws `Error` with the list of all where that is not one.
ChosenSeries pickSeries(VolumeSource const& source, std::vector<DicomImage> images);

} // namespace tamo::volume
