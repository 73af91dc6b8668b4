// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../terminal/QuietLibraries.h"
#include "../terminal/UserError.h"
#include "VolumeFormats.h"

#include <vtkNew.h>
#include <vtkPNGReader.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <set>

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Orders names as a person counts: the numbers in them by value, so that slice 9 comes before slice 10.
bool isBefore(std::string const& a, std::string const& b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            std::size_t const startA = std::min(a.find_first_not_of('0', i), a.size());
            std::size_t const startB = std::min(b.find_first_not_of('0', j), b.size());
            i = std::min(a.find_first_not_of("0123456789", i), a.size());
            j = std::min(b.find_first_not_of("0123456789", j), b.size());
            // Without leading zeros the longer number is the greater; a zero itself has none left.
            std::string const numberA = startA < i ? a.substr(startA, i - startA) : "";
            std::string const numberB = startB < j ? b.substr(startB, j - startB) : "";
            if (numberA != numberB) {
                return numberA.size() != numberB.size() ? numberA.size() < numberB.size() : numberA < numberB;
            }
        } else if (a[i] != b[j]) {
            return a[i] < b[j];
        } else {
            ++i;
            ++j;
        }
    }
    return a.size() - i != b.size() - j ? a.size() - i < b.size() - j : a < b;
}

std::string sliceFormat(fs::path const& path) {
    std::array<char, 132> start{};
    std::ifstream file(path, std::ios::binary);
    file.read(start.data(), start.size());
    if (file && std::memcmp(start.data() + 128, "DICM", 4) == 0) {
        return "DICOM";
    }
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extension == ".png") {
        return "PNG";
    }
    return extension == ".tif" || extension == ".tiff" ? "TIFF" : "";
}

// Reads one picture; false where it is damaged. VTK passes on what libpng says only as a message.
bool readPng(vtkPNGReader& reader, fs::path const& path) {
    QuietLibraries const quiet;
    reader.SetFileName(path.c_str());
    reader.Update();
    return !quiet.hasVtkError() && reader.GetErrorCode() == 0 && reader.GetOutput()->GetScalarPointer() != nullptr;
}

// Returns whether the last chunk of a PNG file stands where it should: the reader does not miss it.
bool endsLikePng(fs::path const& path) {
    constexpr std::array<char, 8> kEnd{'I', 'E', 'N', 'D', '\xAE', '\x42', '\x60', '\x82'};
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::array<char, 8> end{};
    return file.seekg(-8, std::ios::end) && file.read(end.data(), end.size()) && end == kEnd;
}

} // namespace

Volume readPngSlices(std::vector<fs::path> const& slices, Progress& progress) {
    Volume volume;
    int z = 0;
    for (fs::path const& path : slices) {
        vtkNew<vtkPNGReader> reader;
        if (!endsLikePng(path) || !readPng(*reader, path)) {
            throw UserError(path.string() + ": expected a complete PNG file; it is damaged or truncated");
        }
        vtkImageData& slice = *reader->GetOutput();
        if (slice.GetNumberOfScalarComponents() != 1) {
            throw UserError(path.string() + ": expected a volume of one scalar per voxel, found a colour image");
        }
        Size3 size{};
        slice.GetDimensions(size.data());
        if (z == 0) {
            volume.format = "PNG stack";
            volume.size = {size[0], size[1], static_cast<int>(slices.size())};
            volume.image = allocateImage(volume.size, slice.GetScalarType(), path.string());
        }
        if (size != Size3{volume.size[0], volume.size[1], 1} ||
            slice.GetScalarType() != volume.image->GetScalarType()) {
            throw UserError(path.string() + ": expected the size and type of " + slices.front().string());
        }
        // VTK begins a picture with its bottom row.
        auto const rowBytes = static_cast<std::size_t>(size[0]) * static_cast<std::size_t>(slice.GetScalarSize());
        for (int y = 0; y < size[1]; ++y) {
            std::memcpy(rowAddress(*volume.image, y, z), rowAddress(slice, size[1] - 1 - y, 0), rowBytes);
        }
        ++z;
        progress.update(static_cast<double>(z) / volume.size[2]);
    }
    return volume;
}

Volume readSliceFolder(fs::path const& folder, Progress& progress) {
    std::vector<fs::path> slices;
    std::vector<fs::path> others;
    std::set<std::string> formats;
    for (fs::directory_entry const& entry : fs::directory_iterator(folder)) {
        std::string const name = entry.path().filename().string();
        if (!entry.is_regular_file() || name[0] == '.' || name == "DICOMDIR") {
            continue;
        }
        std::string const format = sliceFormat(entry.path());
        (format.empty() ? others : slices).push_back(entry.path());
        if (!format.empty()) {
            formats.insert(format);
        }
    }
    if (formats.size() != 1) {
        throw UserError(folder.string() + ": expected a folder of slices of one format: PNG, TIFF or DICOM");
    }
    std::sort(slices.begin(), slices.end(), [](fs::path const& a, fs::path const& b) {
        return isBefore(a.filename().string(), b.filename().string());
    });
    if (*formats.begin() == "DICOM") {
        // DICOM slices may have any name: one that has lost its beginning would go missing unnoticed.
        if (!others.empty()) {
            throw UserError(others.front().string() + ": expected a DICOM slice, as the other files of the folder");
        }
        return readDicomSlices(slices, progress);
    }
    return *formats.begin() == "PNG" ? readPngSlices(slices, progress) : readTiffSlices(slices, progress);
}

} // namespace tamo::tool
