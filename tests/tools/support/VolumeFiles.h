// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vtkImageData.h>
#include <vtkSmartPointer.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

/// Holds a volume of 16-bit values, x fastest, then y, then z.
struct Samples {
    std::array<int, 3> size{};
    std::vector<std::int16_t> values;

    [[nodiscard]] std::int16_t at(int x, int y, int z) const {
        return values[static_cast<std::size_t>((z * size[1] + y) * size[0] + x)];
    }
};

/// Makes a volume of values from 0 to 4000 that looks different from every side.
Samples makeSamples(int sizeX, int sizeY, int sizeZ);

/// Makes VTK's image of the samples, spacing 1 x 2 x 3.
vtkSmartPointer<vtkImageData> makeImage(Samples const& samples);

/// A way to write a volume, and its name.
struct FileFormat {
    std::string name;
    /// The file or folder to hand to the program.
    std::string fileName;
    std::function<void(Samples const&, std::filesystem::path const&)> write;
    /// Whether the format holds the distances between voxels.
    bool hasSpacing;
};

/// Names the format in the names of tests, which would otherwise hold addresses and change from run to run.
inline std::ostream& operator<<(std::ostream& out, FileFormat const& format) { return out << format.name; }

/// Returns every format that the program knows by its name, in every way of storing voxels that it reads.
std::vector<FileFormat> const& fileFormats();

/// Writes one file.
void writeBytes(std::filesystem::path const& path, std::string const& bytes);
std::string readBytes(std::filesystem::path const& path);

/// Returns the samples as they stand in a file of bare voxels.
std::string rawBytes(Samples const& samples, bool isBigEndian);

/// Writes a NIfTI file; compressed where its name ends in .gz.
void writeNifti(Samples const& samples, std::filesystem::path const& path);
void writeBigEndianNifti(Samples const& samples, std::filesystem::path const& path);

/// Writes slices `first` to `last` as pages of a TIFF file opened with libtiff's `mode`, the first row of a slice at
/// the top.
void writeTiffPages(Samples const& samples, std::filesystem::path const& path, char const* mode, int compression,
                    int first, int last);

/// Writes a big TIFF file whose pages consist of tiles.
void writeTiledTiff(Samples const& samples, std::filesystem::path const& path);

/// Writes each slice as a DICOM file into the folder `path`; file names in an order that is not that of the slices.
void writeDicomFolder(Samples const& samples, std::filesystem::path const& path);
