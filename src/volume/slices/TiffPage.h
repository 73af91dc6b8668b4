// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../ScalarType.h"
#include "Picture.h"
#include "TiffHandle.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tamo::volume {

/// One page of a TIFF file as its tags describe it.
struct TiffPage {
    /// The byte of the file at which its directory begins.
    std::uint64_t directory = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// Of the numbers that the page is read as: 1, 2 and 4 bits become uint8, IEEE floats of 16 bits float32.
    ScalarType type = ScalarType::UInt8;
    /// Of the numbers in the file.
    std::uint16_t bits = 0;
    /// Whether a pixel of 0 is white (MINISWHITE). Unsigned numbers of up to 16 bits are read as their largest value
    /// minus the stored one, so that brighter is higher as in all other files; others are read as they stand.
    bool isZeroWhite = false;
    /// Whether a tag asks to show the page turned or mirrored. Voxels stand as in the file all the same, as other
    /// programs for volumes have them.
    bool isTurned = false;

    /// Returns whether reading inverts the page.
    [[nodiscard]] bool isInverted() const {
        return isZeroWhite && (type == ScalarType::UInt8 || type == ScalarType::UInt16);
    }
    /// Returns whether the pages can be slices of one volume.
    [[nodiscard]] bool isLike(TiffPage const& other) const {
        return width == other.width && height == other.height && type == other.type && bits == other.bits &&
               isZeroWhite == other.isZeroWhite;
    }
};

/// Returns whether the current page is a smaller picture of another page, or a mask: none that is a slice.
bool isReducedPage(TiffHandle const& file);

/// Describes the current page. Throws `Error` where it has several numbers per pixel or a palette, numbers that are of
/// no type, or more of them than the file's bytes can expand to.
TiffPage currentPage(TiffHandle const& file);

/// Returns a note of a page whose 0 is white, or that is to be shown turned; empty for others.
std::string noteOf(TiffPage const& page);

/// Adds to `unpacked` the bytes that reading the current page makes; throws `Error` where the sum is more than the file
/// can expand to under the page's compression.
void checkUnpacked(TiffHandle const& file, std::uint64_t& unpacked);

/// Turns pixels that were read as the file stores them, in the machine's byte order and without padding, into those
/// that `page.type` stands for; `target` may be `stored` unless the types differ in size.
void convertPixels(TiffPage const& page, unsigned char const* stored, std::int64_t count, unsigned char* target);

/// Returns a page as a picture, which reads it through `file`.
std::unique_ptr<Picture> pictureOf(std::shared_ptr<TiffHandle> file, TiffPage const& page);

} // namespace tamo::volume
