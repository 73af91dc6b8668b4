// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomImage.h"

#include "../Error.h"
#include "DicomFrames.h"
#include "DicomTags.h"
#include "DicomText.h"

#include <algorithm>
#include <cmath>

namespace tamo::volume {

namespace {

void readFormat(DicomDataset const& dataset, DicomImage& image) {
    auto const small = [&dataset](DicomTag tag, std::int64_t missing) {
        return static_cast<int>(std::clamp<std::int64_t>(dataset.whole(tag).value_or(missing), -1, 65535));
    };
    PixelFormat& format = image.format;
    format.kind = image.pixels.kind;
    format.bitsAllocated = small(dicom::kBitsAllocated, 0);
    format.bitsStored = small(dicom::kBitsStored, format.bitsAllocated);
    format.highBit = small(dicom::kHighBit, format.bitsStored - 1);
    format.isSigned = dataset.whole(dicom::kPixelRepresentation).value_or(0) == 1;
    image.columns = dataset.whole(dicom::kColumns).value_or(0);
    image.rows = dataset.whole(dicom::kRows).value_or(0);
    image.samples = dataset.whole(dicom::kSamplesPerPixel).value_or(1);
    image.photometric = dataset.text(dicom::kPhotometric);
    image.hasModalityLut = !dataset.items(dicom::kModalityLut).empty();
    image.hasPadding = dataset.has(dicom::kPixelPadding);
}

void readSeries(DicomHeader const& header, DicomImage& image) {
    DicomDataset const& dataset = header.dataset;
    image.seriesUid = shownText(dataset.text(dicom::kSeriesUid), {});
    image.seriesNumber = shownText(dataset.text(dicom::kSeriesNumber), {});
    image.seriesDescription = shownText(dataset.text(dicom::kSeriesDescription), dataset.text(dicom::kCharacterSet));
    image.modality = dataset.text(dicom::kModality);
    image.instance = dataset.whole(dicom::kInstanceNumber);
    image.sopClass = dataset.text(dicom::kSopClass);
    if (image.sopClass.empty()) {
        image.sopClass = header.meta.text(dicom::kMediaStorageSopClass);
    }
}

void readSegments(DicomDataset const& dataset, DicomImage& image) {
    std::string const type = dataset.text(dicom::kSegmentationType);
    image.isSegmentation = image.modality == "SEG" && type != "FRACTIONAL";
    for (DicomDataset const& segment : dataset.items(dicom::kSegmentSequence)) {
        image.segments.emplace_back(segment.whole(dicom::kSegmentNumber).value_or(0),
                                    shownText(segment.text(dicom::kSegmentLabel), dataset.text(dicom::kCharacterSet)));
    }
}

// Pixels of computed tomography with a rescale are Hounsfield units unless the file says otherwise; "US" stands for
// unspecified.
void readUnit(DicomDataset const& dataset, DicomImage& image) {
    std::string const type = image.valueUnit;
    bool const isRescaled = dataset.has(dicom::kRescaleIntercept) || !type.empty() ||
                            image.frames.front().slope != 1.0 || image.frames.front().intercept != 0.0;
    image.valueUnit = shownText(type == "US" ? std::string() : type, dataset.text(dicom::kCharacterSet));
    if (image.valueUnit.empty() && image.modality == "CT" && isRescaled) {
        image.valueUnit = "HU";
    } else if (image.valueUnit.empty() && image.modality == "PT") {
        image.valueUnit = shownText(dataset.text(dicom::kPetUnits), {});
    } else if (image.valueUnit.empty() && image.modality == "RTDOSE") {
        image.valueUnit = shownText(dataset.text(dicom::kDoseUnits), {});
    }
}

// Refuses more frames than the file has room for, before anything is made for each of them.
void checkFrameCount(DicomDataset const& dataset, DicomImage const& image) {
    std::int64_t const frames = dataset.whole(dicom::kNumberOfFrames).value_or(1);
    constexpr std::int64_t kMostSides = 65535;
    bool const isGood =
        frames > 0 && image.columns > 0 && image.columns <= kMostSides && image.rows > 0 && image.rows <= kMostSides;
    auto const most = [&image] {
        auto const bits = static_cast<std::uint64_t>(image.columns * image.rows) *
                          static_cast<std::uint64_t>(std::max(image.format.bitsAllocated, 1));
        return image.pixels.isEncapsulated ? image.pixels.fragments.size() : 8 * image.pixels.bytes / bits;
    };
    if (!isGood || static_cast<std::uint64_t>(frames) > most()) {
        throw Error(image.path, "expected " + std::to_string(frames) + " frames of " + std::to_string(image.columns) +
                                    " x " + std::to_string(image.rows) +
                                    " pixels, found data for fewer; the file is damaged or truncated");
    }
}

void checkFormat(DicomImage const& image) {
    PixelFormat const& format = image.format;
    if (image.samples != 1 ||
        (image.photometric != "MONOCHROME1" && image.photometric != "MONOCHROME2" && !image.photometric.empty())) {
        throw Error(image.path, "expected a volume of one scalar per voxel, found a colour image (" +
                                    shownText(image.photometric, {}) + ")");
    }
    int const bits = format.bitsAllocated;
    bool isGood = (bits == 1 || bits == 8 || bits == 16 || bits == 32) && format.bitsStored >= 1 &&
                  format.bitsStored <= bits && format.highBit >= format.bitsStored - 1 && format.highBit < bits;
    if (format.kind != PixelData::Kind::Integer) {
        isGood = bits == (format.kind == PixelData::Kind::Float ? 32 : 64);
    }
    if (!isGood) {
        throw Error(image.path, "expected pixels of 1, 8, 16 or 32 bits, found " + std::to_string(bits) +
                                    " bits, of which " + std::to_string(format.bitsStored) + " up to bit " +
                                    std::to_string(format.highBit) + " are used");
    }
    if (image.hasModalityLut) {
        throw Error(image.path, "expected values that a slope and an intercept rescale, found a modality lookup table, "
                                "which cannot be applied; convert the series to rescaled values");
    }
}

// How many bytes native pixels take.
std::uint64_t nativeBytes(DicomImage const& image) {
    // At most 65535 x 65535 pixels of 64 bits, times frames that the pixels' bytes have room for: fewer than 2^64.
    std::uint64_t const bits =
        static_cast<std::uint64_t>(image.columns * image.rows) * static_cast<std::uint64_t>(image.format.bitsAllocated);
    return (bits * image.frames.size() + 7) / 8;
}

void checkNativeSize(DicomImage const& image) {
    // Slices of one series may be filled up alike, and one of a wrong size does not fit the others. Within a file of
    // several frames a wrong size would shift all frames but the first.
    std::uint64_t const bytes = nativeBytes(image);
    if (image.pixels.bytes < bytes || (image.hasSurplus && image.frames.size() > 1)) {
        throw Error(image.path, "expected " + std::to_string(bytes) + " bytes of pixels (" +
                                    std::to_string(image.columns) + " x " + std::to_string(image.rows) + ", " +
                                    std::to_string(image.frames.size()) + " frames), found " +
                                    std::to_string(image.pixels.bytes) + "; the file is damaged or truncated");
    }
}

// Refuses sizes that no compression reaches, so that a few bytes cannot ask for gigabytes. RLE makes at most 128 bytes
// of two. The others may pack an empty picture into almost nothing, so pictures of usual size pass in any case.
void checkCompressedSize(DicomImage const& image) {
    constexpr std::uint64_t kUsualPixels = std::uint64_t{1} << 24U;
    constexpr std::uint64_t kMostPixelsPerByte = 4096;
    std::uint64_t const pixels = static_cast<std::uint64_t>(image.columns * image.rows) * image.frames.size();
    std::uint64_t const most = image.syntax.encoding == FrameEncoding::Rle
                                   ? 64 * image.pixels.bytes
                                   : kUsualPixels + kMostPixelsPerByte * image.pixels.bytes;
    if (pixels > most) {
        throw Error(image.path, "expected compressed data of " + std::to_string(pixels) + " pixels, found only " +
                                    std::to_string(image.pixels.bytes) + " bytes; the file is damaged or truncated");
    }
    if (image.format.kind != PixelData::Kind::Integer || image.format.bitsAllocated == 1 ||
        (image.format.bitsAllocated == 32 && image.syntax.encoding != FrameEncoding::Rle &&
         image.syntax.encoding != FrameEncoding::Jpeg2000)) {
        throw Error(image.path, "expected compressed pixels of 8 or 16 bits, found " +
                                    std::to_string(image.format.bitsAllocated) + "; decompress the series first");
    }
}

} // namespace

ScalarType PixelFormat::type() const {
    if (kind != PixelData::Kind::Integer) {
        return kind == PixelData::Kind::Float ? ScalarType::Float32 : ScalarType::Float64;
    }
    if (bitsAllocated <= 8) {
        return isSigned && bitsAllocated == 8 ? ScalarType::Int8 : ScalarType::UInt8;
    }
    if (bitsAllocated <= 16) {
        return isSigned ? ScalarType::Int16 : ScalarType::UInt16;
    }
    return isSigned ? ScalarType::Int32 : ScalarType::UInt32;
}

DicomImage readDicomImage(std::filesystem::path const& path) {
    DicomHeader header = readDicomHeader(path);
    DicomImage image;
    image.path = path;
    image.syntax = header.syntax;
    image.pixels = std::move(header.pixels);
    image.datasetAt = header.datasetAt;
    readSeries(header, image);
    readFormat(header.dataset, image);
    image.hasPixels = image.pixels.kind != PixelData::Kind::None;
    image.claimsPixels = header.dataset.has(dicom::kRows) && header.dataset.has(dicom::kBitsAllocated);
    image.frames.resize(1);
    if (!image.hasPixels || image.syntax.encoding == FrameEncoding::Unsupported) {
        return image;
    }
    try {
        checkFrameCount(header.dataset, image);
        readFrames(header.dataset, image);
        readSegments(header.dataset, image);
        readUnit(header.dataset, image);
        image.hasSurplus =
            !image.pixels.isEncapsulated && image.samples == 1 && image.pixels.bytes > nativeBytes(image) + 1;
    } catch (Error const& error) {
        image.problem = error.reason();
    }
    return image;
}

void checkReadable(DicomImage const& image) {
    if (image.syntax.encoding == FrameEncoding::Unsupported) {
        throw Error(image.path, "expected pixels that this program can decode, found " +
                                    shownText(image.syntax.name, {}) +
                                    "; convert the files to an uncompressed transfer syntax");
    }
    checkFormat(image);
    if (!image.problem.empty()) {
        throw Error(image.path, image.problem);
    }
    bool const isNative =
        image.syntax.encoding == FrameEncoding::Native || image.syntax.encoding == FrameEncoding::Deflated;
    if (isNative == image.pixels.isEncapsulated) {
        throw Error(image.path, "expected pixels as the transfer syntax " + image.syntax.name +
                                    " has them, found others; the file is damaged");
    }
    if (isNative) {
        checkNativeSize(image);
    } else {
        checkCompressedSize(image);
    }
}

} // namespace tamo::volume
