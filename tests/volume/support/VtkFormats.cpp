// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TestFormats.h"

#include "support/files/fileContent.h"

namespace {

namespace fs = std::filesystem;

std::string header(Phantom const& phantom, std::string const& encoding, std::string const& type) {
    std::string const size =
        std::to_string(phantom.size[0]) + " " + std::to_string(phantom.size[1]) + " " + std::to_string(phantom.size[2]);
    return "# vtk DataFile Version 3.0\na phantom\n" + encoding + "\nDATASET STRUCTURED_POINTS\nDIMENSIONS " + size +
           "\nSPACING 1 2 3\nORIGIN -10.5 20.25 30\nPOINT_DATA " + std::to_string(phantom.values.size()) +
           "\nSCALARS grey " + type + "\nLOOKUP_TABLE default\n";
}

void writeText(Phantom const& phantom, fs::path const& folder) {
    std::string bytes = header(phantom, "ASCII", "short");
    for (std::size_t i = 0; i < phantom.values.size(); ++i) {
        bytes += std::to_string(phantom.values[i]) + (i % 9 == 8 ? "\n" : " ");
    }
    bytes.back() = '\n';
    writeFile(folder / "a.vtk", bytes);
}

void writeBinary(Phantom const& phantom, fs::path const& folder) {
    auto const voxels = voxelBytes(phantom, /*isBigEndian=*/true);
    writeFile(folder / "a.vtk", header(phantom, "BINARY", "short") + std::string(voxels.begin(), voxels.end()));
}

} // namespace

std::vector<TestFormat> vtkFormats() {
    TestFormat text{"VtkText", "a.vtk", writeText};
    text.hasAxes = false;
    text.hasLooseEnd = true;
    TestFormat binary{"VtkBinary", "a.vtk", writeBinary};
    binary.hasAxes = false;
    return {text, binary};
}
