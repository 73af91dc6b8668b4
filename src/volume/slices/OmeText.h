// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tamo::volume {

/// Says on which pages some planes of an image stand.
struct OmeTiffData {
    std::int64_t firstZ = 0;
    std::int64_t firstChannel = 0;
    std::int64_t firstFrame = 0;
    /// The page of the first plane; the others follow.
    std::int64_t page = 0;
    /// Nothing where all pages that are left hold planes.
    std::optional<std::int64_t> planes;
    /// The file that holds them, where it is another one.
    std::string otherFile;
};

/// An image of an OME document.
struct OmeImage {
    std::string id;
    std::string name;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t slices = 0;
    std::int64_t channels = 0;
    std::int64_t frames = 0;
    /// The axes beyond x and y by how fast they run: "ZCT" in any order.
    std::string order;
    /// In millimetres, along x, y and z; nothing where the document does not say, or says it in no unit of length.
    std::array<std::optional<double>, 3> spacing;
    /// Of the spacing along x.
    std::string unit;
    std::vector<OmeTiffData> data;
};

/// Reads an ImageDescription; nothing for one that is no OME document. Throws `Error`, naming `path`, for a document
/// that is damaged, that holds no image, or that only names another file.
std::optional<std::vector<OmeImage>> parseOmeText(std::string const& description, std::filesystem::path const& path);

/// Returns the page of each slice of a frame of a channel, among `pages` pages. Throws `Error` where one is in another
/// file or in none.
std::vector<std::int64_t> pagesOf(OmeImage const& image, std::int64_t channel, std::int64_t frame, std::int64_t pages,
                                  std::filesystem::path const& path);

} // namespace tamo::volume
