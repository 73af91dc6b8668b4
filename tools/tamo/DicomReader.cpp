// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "QuietLibraries.h"
#include "UserError.h"
#include "VolumeFormats.h"

#include <vtkDICOMImageReader.h>
#include <vtkNew.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>

namespace {

using namespace tamo;
namespace fs = std::filesystem;

// The tag (7FE0, 0010) of the pixel data, as a little-endian file holds it.
constexpr std::array<unsigned char, 4> kPixelData{0xE0, 0x7F, 0x10, 0x00};

std::uint64_t littleEndian(unsigned char const* bytes) {
    return bytes[0] | std::uint64_t{bytes[1]} << 8U | std::uint64_t{bytes[2]} << 16U | std::uint64_t{bytes[3]} << 24U;
}

/// Tells whether the file holds all the pixel data that it announces, and at least `pixels` of them.
///
/// VTK shows what it has read so far. The bytes of the tag may also stand elsewhere: one place that fits is enough.
bool hasAllPixels(fs::path const& path, std::uint64_t pixels) {
    std::ifstream file(path, std::ios::binary);
    std::vector<unsigned char> const bytes{std::istreambuf_iterator<char>(file), {}};
    auto const isComplete = [&bytes, pixels](std::size_t data, std::size_t lengthAt) {
        if (data > bytes.size()) {
            return false;
        }
        std::uint64_t const length = littleEndian(bytes.data() + lengthAt);
        return length >= pixels && length <= bytes.size() - data;
    };
    auto found = std::search(bytes.begin(), bytes.end(), kPixelData.begin(), kPixelData.end());
    while (found != bytes.end()) {
        auto const tag = static_cast<std::size_t>(found - bytes.begin());
        // With the type of the values spelt out the length stands behind it and two zeros, else behind the tag itself.
        if (isComplete(tag + 12, tag + 8) || isComplete(tag + 8, tag + 4)) {
            return true;
        }
        found = std::search(found + 1, bytes.end(), kPixelData.begin(), kPixelData.end());
    }
    return false;
}

/// Turns VTK's order of rows, bottom first, into that of the file.
void reverseRows(Volume& volume) {
    auto const rowBytes = static_cast<std::ptrdiff_t>(volume.size[0]) * volume.image->GetScalarSize();
    for (int z = 0; z < volume.size[2]; ++z) {
        for (int y = 0; y < volume.size[1] / 2; ++y) {
            unsigned char* const row = rowAddress(*volume.image, y, z);
            std::swap_ranges(row, row + rowBytes, rowAddress(*volume.image, volume.size[1] - 1 - y, z));
        }
    }
}

/// Takes the axes from the directions of rows and columns, which DICOM gives towards the left, back and top.
void setAxes(Volume& volume, float const* orientation) {
    if (orientation == nullptr) {
        return;
    }
    std::array<Vector3, 3> axes{};
    for (std::size_t i = 0; i < 3; ++i) {
        double const sign = i < 2 ? -1.0 : 1.0;
        axes[0][i] = sign * static_cast<double>(orientation[i]);
        axes[1][i] = sign * static_cast<double>(orientation[i + 3]);
    }
    for (std::size_t i = 0; i < 3; ++i) {
        std::size_t const j = (i + 1) % 3;
        std::size_t const k = (i + 2) % 3;
        axes[2][i] = axes[0][j] * axes[1][k] - axes[0][k] * axes[1][j];
    }
    if (std::hypot(axes[2][0], axes[2][1], axes[2][2]) > 0.5) {
        volume.axes = axes;
    }
}

constexpr char const* kUncompressed[] = {"1.2.840.10008.1.2", "1.2.840.10008.1.2.1"};

void checkSlices(vtkDICOMImageReader& reader, Volume const& volume, fs::path const& folder,
                 std::vector<fs::path> const& slices) {
    std::string const syntax = reader.GetTransferSyntaxUID() != nullptr ? reader.GetTransferSyntaxUID() : "";
    if (std::find(std::begin(kUncompressed), std::end(kUncompressed), syntax) == std::end(kUncompressed)) {
        throw UserError(folder.string() + ": expected uncompressed little-endian DICOM, found transfer syntax " +
                        syntax);
    }
    if (volume.size[2] != static_cast<int>(slices.size())) {
        throw UserError(folder.string() + ": expected one series of " + std::to_string(slices.size()) +
                        " DICOM slices, found " + std::to_string(volume.size[2]) + " that belong together");
    }
    std::uint64_t const pixels = static_cast<std::uint64_t>(reader.GetBitsAllocated() / 8) *
                                 static_cast<std::uint64_t>(volume.size[0]) *
                                 static_cast<std::uint64_t>(volume.size[1]);
    for (fs::path const& slice : slices) {
        if (!hasAllPixels(slice, pixels)) {
            throw UserError(slice.string() + ": expected a complete DICOM slice; it is damaged or truncated");
        }
    }
}

} // namespace

namespace tamo {

Volume readDicomFolder(fs::path const& folder, std::vector<fs::path> const& slices, Progress& progress) {
    vtkNew<vtkDICOMImageReader> reader;
    reader->SetDirectoryName(folder.c_str());
    progress.update(0.0);
    bool isRead = false;
    {
        QuietLibraries const quiet;
        reader->Update();
        isRead = !quiet.hasVtkError() && reader->GetErrorCode() == 0;
    }
    if (!isRead || reader->GetOutput()->GetScalarPointer() == nullptr) {
        throw UserError(folder.string() + ": expected a folder of complete DICOM slices; one is damaged or truncated");
    }
    Volume volume;
    volume.format = "DICOM folder";
    volume.image = reader->GetOutput();
    volume.image->GetDimensions(volume.size.data());
    volume.image->GetSpacing(volume.spacing.data());
    checkSlices(*reader, volume, folder, slices);
    reverseRows(volume);
    setAxes(volume, reader->GetImageOrientationPatient());
    return volume;
}

} // namespace tamo
