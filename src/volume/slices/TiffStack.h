// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "ImageJText.h"
#include "TiffPage.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace tamo::volume {

/// The pages of a file.
struct TiffStack {
    /// The first page that may be a slice; all that may be are like it unless they may differ.
    TiffPage page;
    /// Where the directories of all pages begin.
    std::vector<std::uint64_t> directories;
    /// Which of them are reduced pages or masks.
    std::vector<bool> isReduced;

    /// Returns the directories of the others.
    [[nodiscard]] std::vector<std::uint64_t> slicePages() const;
};

/// Goes through the pages of a file, which stands at its first. Throws `Error` where two pages that may be slices
/// differ, unless the file describes images of several sizes, where there is none, or where together they are more than
/// the file can hold.
TiffStack listPages(TiffHandle& file, Progress const& progress, bool mayDiffer = false);

/// Images that stand one behind another, without pages of their own.
struct TiffRun {
    /// The byte of the file at which the first of all begins.
    std::uint64_t start = 0;
    std::uint64_t imageBytes = 0;
    bool isBigEndian = false;
    /// The image of the first slice, and how many images on the next one is.
    std::int64_t first = 0;
    std::int64_t step = 1;
};

/// Returns the run of `images` images of which the current page is the first: the way in which ImageJ stores what
/// directories of 32 bits cannot point at. Nothing where the page does not allow for it or the file is shorter.
std::optional<TiffRun> findRun(TiffHandle const& file, TiffPage const& page, std::int64_t images);

/// Returns the spacing in millimetres that the current page and its description by ImageJ state, nothing along an axis
/// of which they do not. The resolution tags count in the description's unit, whatever they say of inches: without one
/// they are what a printer would make of the page.
std::array<std::optional<double>, 3> spacingOf(TiffHandle const& file, ImageJText const& text);

} // namespace tamo::volume
