// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../terminal/QuietLibraries.h"
#include "../terminal/UserError.h"
#include "VolumeFormats.h"

#include <vtkDICOMImageReader.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

// The tag (7FE0, 0010) of the pixel data, as a little-endian file holds it.
constexpr std::array<unsigned char, 4> kPixelData{0xE0, 0x7F, 0x10, 0x00};

std::uint64_t littleEndian(unsigned char const* bytes) {
    return bytes[0] | std::uint64_t{bytes[1]} << 8U | std::uint64_t{bytes[2]} << 16U | std::uint64_t{bytes[3]} << 24U;
}

// Returns whether the file holds all the pixel data that it announces, and at least `pixels` of them.
//
// VTK shows what it has read so far. The bytes of the tag may also stand elsewhere: one place that fits is enough.
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

// What VTK tells of one slice. Directions and positions lead towards the left, the back and the top.
struct Slice {
    fs::path path;
    vtkSmartPointer<vtkDICOMImageReader> reader;
    std::array<Vector3, 2> directions{};
    Vector3 position{};

    [[nodiscard]] Vector3 normal() const { return cross(directions[0], directions[1]); }
};

// Reads a slice; what it shows stays in its reader.
Slice readSlice(fs::path const& path) {
    Slice slice;
    slice.path = path;
    slice.reader = vtkSmartPointer<vtkDICOMImageReader>::New();
    slice.reader->SetFileName(path.c_str());
    bool isRead = false;
    {
        QuietLibraries const quiet;
        slice.reader->Update();
        isRead = !quiet.hasVtkError() && slice.reader->GetErrorCode() == 0;
    }
    vtkImageData* const image = slice.reader->GetOutput();
    std::uint64_t const pixels = static_cast<std::uint64_t>(image->GetNumberOfPoints()) *
                                 static_cast<std::uint64_t>(slice.reader->GetBitsAllocated()) / 8;
    std::string const syntax =
        slice.reader->GetTransferSyntaxUID() != nullptr ? slice.reader->GetTransferSyntaxUID() : "";
    if (isRead && !syntax.empty() && syntax != "1.2.840.10008.1.2" && syntax != "1.2.840.10008.1.2.1") {
        throw UserError(path.string() + ": expected uncompressed little-endian DICOM, found transfer syntax " + syntax);
    }
    if (!isRead || image->GetScalarPointer() == nullptr || !hasAllPixels(path, pixels)) {
        throw UserError(path.string() + ": expected a complete DICOM slice; it is damaged or truncated");
    }
    float const* const orientation = slice.reader->GetImageOrientationPatient();
    float const* const position = slice.reader->GetImagePositionPatient();
    for (std::size_t i = 0; i < 3; ++i) {
        slice.directions[0][i] = static_cast<double>(orientation[i]);
        slice.directions[1][i] = static_cast<double>(orientation[i + 3]);
        slice.position[i] = static_cast<double>(position[i]);
    }
    return slice;
}

void checkAlike(Slice const& slice, Slice const& first) {
    vtkImageData* const image = slice.reader->GetOutput();
    vtkImageData* const firstImage = first.reader->GetOutput();
    if (image->GetNumberOfScalarComponents() != 1) {
        throw UserError(slice.path.string() + ": expected a volume of one scalar per voxel, found a colour image");
    }
    bool const isAlike = std::equal(image->GetDimensions(), image->GetDimensions() + 3, firstImage->GetDimensions()) &&
                         image->GetScalarType() == firstImage->GetScalarType() &&
                         dot(slice.normal(), first.normal()) > 0.999 * dot(first.normal(), first.normal());
    if (!isAlike) {
        throw UserError(slice.path.string() + ": expected a slice of the size, type and orientation of " +
                        first.path.string());
    }
}

// Orders the slices along their common normal and returns the mean distance between them.
double sortByPosition(std::vector<Slice>& slices) {
    Vector3 const normal = slices.front().normal();
    auto const height = [&normal](Slice const& slice) { return dot(normal, slice.position); };
    std::stable_sort(slices.begin(), slices.end(),
                     [&height](Slice const& a, Slice const& b) { return height(a) < height(b); });
    for (std::size_t i = 1; i < slices.size(); ++i) {
        if (height(slices[i]) == height(slices[i - 1])) {
            throw UserError(slices[i].path.string() + ": expected one series of slices, found the place of " +
                            slices[i - 1].path.string());
        }
    }
    double const distance = height(slices.back()) - height(slices.front());
    return slices.size() > 1 ? distance / static_cast<double>(slices.size() - 1) : 1.0;
}

void copySlice(Slice const& slice, Volume& volume, int z) {
    auto const rowBytes =
        static_cast<std::size_t>(volume.size[0]) * static_cast<std::size_t>(volume.image->GetScalarSize());
    for (int y = 0; y < volume.size[1]; ++y) {
        // VTK begins a picture with its bottom row.
        std::memcpy(rowAddress(*volume.image, y, z), rowAddress(*slice.reader->GetOutput(), volume.size[1] - 1 - y, 0),
                    rowBytes);
    }
}

} // namespace

// VTK can read a folder of slices as well, but takes the distances of rows and columns for each other, and leaves out
// without a word what it cannot read.
Volume readDicomSlices(std::vector<fs::path> const& paths, Progress& progress) {
    std::vector<Slice> slices;
    for (fs::path const& path : paths) {
        slices.push_back(readSlice(path));
        checkAlike(slices.back(), slices.front());
        progress.update(static_cast<double>(slices.size()) / static_cast<double>(paths.size()));
    }
    double const distance = sortByPosition(slices);

    vtkImageData& first = *slices.front().reader->GetOutput();
    Volume volume;
    volume.format = "DICOM folder";
    volume.size = {first.GetDimensions()[0], first.GetDimensions()[1], static_cast<int>(slices.size())};
    volume.image = allocateImage(volume.size, first.GetScalarType(), paths.front().string());
    volume.spacing = {first.GetSpacing()[1], first.GetSpacing()[0], distance};
    std::array<Vector3, 3> const axes{slices.front().directions[0], slices.front().directions[1],
                                      slices.front().normal()};
    if (dot(axes[2], axes[2]) > 0.5) {
        std::transform(axes.begin(), axes.end(), volume.axes.begin(), [](Vector3 const& axis) {
            return Vector3{-axis[0], -axis[1], axis[2]};
        });
    }
    int z = 0;
    for (Slice& slice : slices) {
        copySlice(slice, volume, z++);
        // What is copied is not needed a second time.
        slice.reader = nullptr;
    }
    return volume;
}

} // namespace tamo::tool
