// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

// A file of 2 x 2 x 2 bytes as text, with other attributes of the image and of the array where they are given.
std::string vtiText(std::string const& image, std::string const& array, std::string const& numbers) {
    return "<?xml version=\"1.0\"?>\n<VTKFile type=\"ImageData\" version=\"0.1\" byte_order=\"LittleEndian\">\n"
           "<ImageData WholeExtent=\"3 4 0 1 0 1\" Origin=\"0 0 0\" Spacing=\"2 1 1\" " +
           image + "><Piece Extent=\"3 4 0 1 0 1\"><PointData Scalars=\"a\"><DataArray type=\"UInt8\" Name=\"a\" " +
           array + " format=\"ascii\">" + numbers + "</DataArray></PointData></Piece></ImageData></VTKFile>\n";
}

TEST(XmlVtkFile, BeginsWhereTheFirstVoxelOfItsExtentLies) {
    TemporaryFolder const folder;
    writeFile(folder / "a.vti", vtiText("", "", "1 2 3 4 5 6 7 8"));
    auto const volume = readWhole(folder / "a.vti");
    EXPECT_EQ(valueAt(volume, 1, 1, 1), 8);
    EXPECT_EQ(volume.header.geometry.origin, (tamo::Vector3{6, 0, 0}));
    EXPECT_FALSE(volume.header.geometry.areAxesKnown);
}

TEST(XmlVtkFile, RefusesColoursAndFilesWithoutVoxels) {
    TemporaryFolder const folder;
    writeFile(folder / "a.vti", vtiText("", "NumberOfComponents=\"2\"", "1 2 3 4 5 6 7 8 1 2 3 4 5 6 7 8"));
    EXPECT_NE(refusalOf(folder / "a.vti").find("found 2 components"), std::string::npos) << refusalOf(folder / "a.vti");
    writeFile(folder / "a.vti", vtiText("", "", "1 2 3"));
    EXPECT_NE(refusalOf(folder / "a.vti").find("damaged, truncated"), std::string::npos) << refusalOf(folder / "a.vti");
}

} // namespace
