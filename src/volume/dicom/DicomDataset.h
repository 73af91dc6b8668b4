// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "DicomBytes.h"
#include "TransferSyntax.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tamo::volume {

/// Group and element of a DICOM tag: 0x00280010 is (0028,0010).
using DicomTag = std::uint32_t;

class DicomDataset;

/// The value of one element, in whichever of the three forms its type has.
struct DicomValue {
    /// Without blanks and zeros at its ends; values of several parts are separated by backslashes.
    std::string text;
    /// Of binary types.
    std::vector<double> numbers;
    /// Of sequences.
    std::vector<DicomDataset> items;
};

/// Where a file holds its pixels.
struct PixelData {
    /// Integers, or float32 and float64 in elements of their own.
    enum class Kind {
        None,
        Integer,
        Float,
        Double
    };
    Kind kind = Kind::None;
    std::uint64_t at = 0;
    std::uint64_t bytes = 0;
    /// Whether pixels of 8 bits stand in pairs that have the file's byte order.
    bool isWords = false;
    /// Place and length of each piece of compressed frames, without the table of offsets that comes first.
    std::vector<std::pair<std::uint64_t, std::uint64_t>> fragments;
    /// The table of offsets: where each frame begins, counted from the first piece's header. May be empty.
    std::vector<std::uint32_t> offsets;
    bool isEncapsulated = false;
};

/// The elements of a dataset, or of an item of a sequence, as far as volumes are concerned; the others are passed over.
class DicomDataset {
  public:
    [[nodiscard]] bool has(DicomTag tag) const { return _values.count(tag) > 0; }
    /// Returns the text, or an empty one.
    [[nodiscard]] std::string text(DicomTag tag) const;
    /// Returns all numbers of an element, decimal text or binary; none where one of them is no finite number.
    [[nodiscard]] std::vector<double> numbers(DicomTag tag) const;
    /// Returns the first number.
    [[nodiscard]] std::optional<double> number(DicomTag tag) const;
    /// Returns the first number if it is a whole one of at most 2^53.
    [[nodiscard]] std::optional<std::int64_t> whole(DicomTag tag) const;
    /// Returns the items of a sequence, none where there is no such sequence.
    [[nodiscard]] std::vector<DicomDataset> const& items(DicomTag tag) const;

    /// Keeps the first value of each tag.
    void add(DicomTag tag, DicomValue value) { _values.emplace(tag, std::move(value)); }

  private:
    std::map<DicomTag, DicomValue> _values;
};

/// All that is read of a file before its pixels.
struct DicomHeader {
    TransferSyntax syntax;
    /// The elements of the file's meta information, group 2.
    DicomDataset meta;
    DicomDataset dataset;
    PixelData pixels;
    /// Where the dataset begins.
    std::uint64_t datasetAt = 0;
};

/// Reads a file up to its pixels, and checks that these, as long as they claim to be, are in the file. Throws `Error`
/// for a file that is damaged or truncated. Memory: in proportion to the part of the file before the pixels, and for
/// deflated files to all of what they expand to.
DicomHeader readDicomHeader(std::filesystem::path const& path);

/// Opens the bytes in which `PixelData` of a header counts its places.
std::unique_ptr<DicomBytes> openPixelBytes(std::filesystem::path const& path, FrameEncoding encoding,
                                           std::uint64_t datasetAt);

} // namespace tamo::volume
