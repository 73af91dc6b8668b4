// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tamo::volume {

/// What ImageJ writes of a stack into the ImageDescription of its first page, a line "key=value" each. Images stand in
/// the file channel by channel, then slice by slice, then frame by frame.
struct ImageJText {
    /// How many images the file holds, whether or not each has a page.
    std::int64_t images = 1;
    std::int64_t channels = 1;
    std::int64_t slices = 1;
    std::int64_t frames = 1;
    /// The distance of slices in units; nothing where the text does not state it.
    std::optional<double> spacing;
    /// As spelled; empty where the text names none. The same unit counts for the resolution tags.
    std::string unit;
};

/// Reads a description; nothing for one that ImageJ has not written. Throws `Error`, naming `path`, for numbers that
/// are none or contradict each other.
std::optional<ImageJText> parseImageJText(std::string const& description, std::filesystem::path const& path);

} // namespace tamo::volume
