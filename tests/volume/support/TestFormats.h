// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Phantom.h"

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

/// A way to write a volume, and what of the volume it keeps.
struct TestFormat {
    /// In the names of tests: "NiftiGzip".
    std::string name;
    /// The file or folder to open, below the folder that `write` gets.
    std::string fileName;
    /// Writes all files of the volume into an empty folder.
    std::function<void(Phantom const&, std::filesystem::path const&)> write;
    bool hasSpacing = true;
    bool hasOrigin = true;
    bool hasAxes = true;
    /// A stored value is that of the phantom divided by this, rounded down: 16 for formats of 8 bits.
    int divisor = 1;
    /// How far values may be off after lossy compression, in stored values.
    double tolerance = 0;
    /// Whether the end of the file may be lost without a trace, as within the last number of a text.
    bool hasLooseEnd = false;
    /// Whether a library that reads the format is known to end the program over damaged headers.
    bool hasFragileReader = false;
};

/// Names the format in the names of tests, which would otherwise hold addresses and change from run to run.
inline std::ostream& operator<<(std::ostream& out, TestFormat const& format) { return out << format.name; }

// The formats by reader; together in `testFormats`.
std::vector<TestFormat> niftiFormats();
std::vector<TestFormat> mghFormats();
std::vector<TestFormat> npyFormats();
std::vector<TestFormat> vtkFormats();
/// None in a build without VTK.
std::vector<TestFormat> vtiFormats();
std::vector<TestFormat> metaImageFormats();
std::vector<TestFormat> nrrdFormats();
std::vector<TestFormat> tiffFormats();
std::vector<TestFormat> sliceFormats();
std::vector<TestFormat> dicomFormats();

/// Returns every format that the library reads by its name, in every way of storing voxels.
std::vector<TestFormat> const& testFormats();
