// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "VolumeHeader.h"
#include "VolumeSource.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tamo::volume {

/// Returns which of `count` channels, frames or the like (`name` is the word for one) to take. Throws `Error` where
/// there are several and none is wanted, or where the one that is wanted does not exist.
std::int64_t chooseOne(std::filesystem::path const& path, std::string const& name, std::int64_t count,
                       std::optional<std::int64_t> wanted);

/// Returns which series is meant by the source, by number or UID. Throws `Error` likewise, with a list of the first 20,
/// and where several have the number.
std::size_t chooseSeries(VolumeSource const& source, std::vector<SeriesInfo> const& series);

/// Returns the frame in which the segment stands that the source names. Throws `Error`, listing the names, where none
/// of the labels has its name.
std::int64_t frameOfSegment(VolumeSource const& source, std::vector<LabelName> const& labels);

} // namespace tamo::volume
