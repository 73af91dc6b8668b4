// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamo::volume {

/// What writers of arrays put into the ImageDescription of a first page, a JSON object:
/// `{"shape": [2, 10, 512, 512], "axes": "TZYX"}`. The pages are the planes of the array, the last axis fastest.
struct ShapedText {
    struct Axis {
        /// 'Z', 'C', or 'T' for all that is neither.
        char kind;
        std::int64_t size;
    };
    /// Those beyond rows and columns, the slowest first; at most one is 'Z', and at most one is 'C'.
    std::vector<Axis> axes;

    /// Returns the product of the sizes of all axes, of those of one kind; a number past 2^40 where it is more.
    [[nodiscard]] std::int64_t count() const;
    [[nodiscard]] std::int64_t count(char kind) const;
    /// Returns the pages of a volume, in the order of z.
    [[nodiscard]] std::vector<std::int64_t> pagesOf(std::int64_t channel, std::int64_t frame) const;
};

/// Reads a description of pages of so many columns and rows; nothing for one that is none, that is of one plane or that
/// is of other pages. Where the axes have no names, the one before the rows is z.
std::optional<ShapedText> parseShapedText(std::string const& description, std::int64_t width, std::int64_t height);

} // namespace tamo::volume
