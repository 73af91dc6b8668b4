// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "HeaderText.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamo::volume {

/// Holds what the header of a NRRD file says, its axes sorted into those of space and that of frames.
struct NrrdHeader {
    explicit NrrdHeader(std::filesystem::path const& path) : text(path) {}

    /// The fields, by names in lower case.
    HeaderText text;
    /// The pairs of keys and values, about which the format says nothing.
    std::map<std::string, std::string> keys;
    /// Of all axes, the fastest first.
    std::vector<std::int64_t> sizes;
    /// The axes that are x, y and z, in this order.
    std::array<std::size_t, 3> spaceAxes{0, 1, 2};
    /// The axis, the first or the last of four, along which there are several volumes.
    std::optional<std::size_t> frameAxis;
    /// For each axis the coordinates of its direction, none for an axis that has no direction; empty where the file
    /// states none for any.
    std::vector<std::vector<double>> directions;
    /// How many coordinates space has: three, or four with time.
    std::size_t spaceDimension = 3;
};

/// Reads a header up to the empty line behind it; in one that ends with "data file: LIST", the names of files are what
/// comes next. Throws `Error` for what is no header of a volume of one number per voxel, or of several.
NrrdHeader readNrrdHeader(HeaderLines& lines, std::filesystem::path const& path);

/// Returns the texts of a field that are quoted, as units are.
std::vector<std::string> quotedTexts(std::string const& text);

} // namespace tamo::volume
