// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../../geometry/Vector3.h"
#include "../ScalarType.h"
#include "DicomDataset.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tamo::volume {

/// Where a slice lies, as its file states it.
struct SlicePlace {
    /// Centre of the first pixel.
    Vector3 position{};
    /// The directions in which columns and rows are counted, of length 1 and at right angles.
    std::array<Vector3, 2> directions{};
    /// How far the position may be off because of the decimals that it is written with.
    double rounding = 0;
};

/// One picture of a file.
struct DicomFrame {
    /// The index of a frame that no file holds: all its pixels are 0.
    static constexpr std::int64_t kEmpty = -1;

    /// Counted within its file.
    std::int64_t index = 0;
    std::optional<SlicePlace> place;
    /// Distances between columns and between rows.
    std::optional<std::array<double, 2>> spacing;
    double slope = 1;
    double intercept = 0;
    /// Whatever tells frames at one place apart: names and values.
    std::vector<std::pair<std::string, std::string>> marks;
};

/// How one pixel is stored.
struct PixelFormat {
    PixelData::Kind kind = PixelData::Kind::Integer;
    int bitsAllocated = 0;
    int bitsStored = 0;
    int highBit = 0;
    bool isSigned = false;

    bool operator==(PixelFormat const& other) const {
        return kind == other.kind && bitsAllocated == other.bitsAllocated && bitsStored == other.bitsStored &&
               highBit == other.highBit && isSigned == other.isSigned;
    }
    /// Returns the type that holds the stored numbers.
    [[nodiscard]] ScalarType type() const;
};

/// What a file says of its pictures. It may be one that cannot be read: `checkReadable` decides.
struct DicomImage {
    std::filesystem::path path;
    std::string seriesUid;
    std::string seriesNumber;
    std::string seriesDescription;
    std::string modality;
    std::string sopClass;
    TransferSyntax syntax;
    PixelFormat format;
    PixelData pixels;
    std::uint64_t datasetAt = 0;
    std::int64_t columns = 0;
    std::int64_t rows = 0;
    std::int64_t samples = 1;
    std::string photometric;
    std::optional<std::int64_t> instance;
    /// The distance of slices that lie at no place of their own.
    std::optional<double> sliceDistance;
    std::string valueUnit;
    bool hasModalityLut = false;
    bool hasPadding = false;
    bool isDetectorSpacing = false;
    /// Whether the pixels are followed by more than fills up an even number of bytes.
    bool hasSurplus = false;
    /// Whether frames of one file say nothing of their places.
    bool isPlainMultiFrame = false;
    bool isSegmentation = false;
    /// Numbers and names of segments.
    std::vector<std::pair<std::int64_t, std::string>> segments;
    std::vector<DicomFrame> frames;
    /// Whether there are pixels at all: reports and the like have none.
    bool hasPixels = false;
    /// Whether it says that it should have pixels.
    bool claimsPixels = false;
    /// Why the frames make no sense; empty where they do. Counts once the series is wanted.
    std::string problem;
};

/// Reads what a file says of its pictures. Throws `Error` for a file that is damaged or truncated.
DicomImage readDicomImage(std::filesystem::path const& path);

/// Throws `Error` where the pixels are none that this library can read as one number per voxel, or are not all there.
void checkReadable(DicomImage const& image);

} // namespace tamo::volume
