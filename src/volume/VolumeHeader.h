// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "GridGeometry.h"
#include "ScalarType.h"
#include "Size3.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tamo::volume {

/// A value of a label volume that the file names.
struct LabelName {
    double value;
    std::string name;
    /// The frame in which the label stands.
    std::int64_t frame = 0;
};

/// One of the series that a folder holds.
struct SeriesInfo {
    /// As the file gives it, or empty.
    std::string number;
    std::string uid;
    std::string description;
    std::int64_t slices = 0;
};

/// Holds all that a file says of its volume, except for the voxels.
///
/// Voxel (x, y, z) is the x-th of its row, the y-th row of its slice and the z-th slice, in the order of the file.
struct VolumeHeader {
    /// As people call it: "NIfTI-1", "DICOM, JPEG 2000".
    std::string format;
    ScalarType type = ScalarType::UInt8;
    Size3 size{};
    GridGeometry geometry;
    /// A stored number v means slope * v + intercept.
    double slope = 1;
    double intercept = 0;
    /// The unit of values, such as "HU"; empty where the file names none.
    std::string valueUnit;
    /// Whether the file says that its values are labels: names rather than amounts.
    bool isLabelMap = false;
    std::vector<LabelName> labels;
    /// How many volumes the file holds, and which of them this is.
    std::int64_t frames = 1;
    std::int64_t frame = 0;
    std::int64_t channels = 1;
    std::int64_t channel = 0;
    /// All series found, the one that is read among them; empty for formats without any.
    std::vector<SeriesInfo> series;
    /// Which of them this is.
    std::size_t chosenSeries = 0;
    /// What the reader assumed or left out, one sentence each without a full stop: "notes.txt is no slice and was
    /// left out".
    std::vector<std::string> notes;
};

} // namespace tamo::volume
