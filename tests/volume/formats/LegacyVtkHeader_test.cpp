// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/LegacyVtkHeader.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::LegacyVtkHeader;
using tamo::volume::ScalarType;

constexpr char const* kStart = "# vtk DataFile Version 3.0\ntitle\nASCII\nDATASET STRUCTURED_POINTS\n";
constexpr char const* kSize = "DIMENSIONS 2 2 2\n";
constexpr char const* kPoints = "POINT_DATA 8\n";
constexpr char const* kScalars = "SCALARS a short\nLOOKUP_TABLE default\n1 2 3 4 5 6 7 8\n";

LegacyVtkHeader headerOf(std::string const& bytes) {
    TemporaryFolder const folder;
    writeFile(folder / "a.vtk", bytes);
    return tamo::volume::readLegacyVtkHeader(folder / "a.vtk", {});
}

std::string refusal(std::string const& bytes) {
    try {
        headerOf(bytes);
    } catch (tamo::volume::Error const& error) {
        return error.reason();
    }
    return {};
}

std::string join(std::initializer_list<char const*> parts) {
    std::string text;
    for (char const* const part : parts) {
        text += part;
    }
    return text;
}

TEST(LegacyVtkHeader, StatesWhatTheFileDoesAndNoAxes) {
    LegacyVtkHeader const header = headerOf(join({kStart, kSize, "ASPECT_RATIO 1 2 3\n", kPoints, kScalars}));
    EXPECT_EQ(header.volume.geometry.spacing, (tamo::Vector3{1, 2, 3}));
    EXPECT_TRUE(header.volume.geometry.isSpacingKnown);
    EXPECT_FALSE(header.volume.geometry.isOriginKnown);
    EXPECT_FALSE(header.volume.geometry.areAxesKnown);
    EXPECT_TRUE(header.isText);
}

TEST(LegacyVtkHeader, HasTheOriginAtIndexZeroOfAnExtent) {
    LegacyVtkHeader const header =
        headerOf(join({kStart, "EXTENT 2 3 -1 0 0 1\nORIGIN 10 20 30\nSPACING 1 2 3\n", kPoints, kScalars}));
    EXPECT_EQ(header.volume.size, (tamo::volume::Size3{2, 2, 2}));
    EXPECT_EQ(header.volume.geometry.origin, (tamo::Vector3{12, 18, 30}));
}

TEST(LegacyVtkHeader, FindsTheScalarsAmongOtherArrays) {
    std::string const before =
        join({kStart, "FIELD FieldData 1\nTIME 1 1 double\n0.5\n", kSize,
              "CELL_DATA 1\nSCALARS c float 2\nLOOKUP_TABLE t\n1 2\nLOOKUP_TABLE t 1\n0 0 0 1\n", kPoints,
              "VECTORS v float\n1 2 3 4 5 6 7 8 9 10 11 12 1 2 3 4 5 6 7 8 9 10 11 12\n",
              "METADATA\nINFORMATION 1\nNAME x\n\n", "FIELD FieldData 1\nf 1 8 int\n1 2 3 4 5 6 7 8\nMETADATA\nx\n\n"});
    LegacyVtkHeader const header = headerOf(before + kScalars + "NORMALS n float\n" + std::string(48, ' ') +
                                            "1 2 3 4 5 6 7 8 9 10 11 12 1 2 3 4 5 6 7 8 9 10 11 12");
    EXPECT_EQ(header.volume.type, ScalarType::Int16);
    EXPECT_EQ(header.start, before.size() + std::string(kScalars).find("1 2"));
    ASSERT_EQ(header.volume.notes.size(), 1);
    EXPECT_EQ(header.volume.notes[0], "of 2 arrays of the points only one is read");
}

TEST(LegacyVtkHeader, TakesAFieldWhereThereAreNoScalars) {
    LegacyVtkHeader const header =
        headerOf(join({kStart, kSize, kPoints, "FIELD FieldData 1\nf 1 8 unsigned_int\n1 2 3 4 5 6 7 8\n"}));
    EXPECT_EQ(header.volume.type, ScalarType::UInt32);
    EXPECT_TRUE(header.volume.notes.empty());
}

TEST(LegacyVtkHeader, RefusesOtherDataSets) {
    std::string const start = "# vtk DataFile Version 3.0\ntitle\nASCII\nDATASET ";
    for (char const* const kind : {"POLYDATA", "STRUCTURED_GRID", "UNSTRUCTURED_GRID", "RECTILINEAR_GRID", "FIELD"}) {
        EXPECT_NE(refusal(start + kind + "\n").find(std::string("found \"") + kind), std::string::npos);
    }
    EXPECT_NE(refusal(join({kStart, kSize, "CELL_DATA 1\nSCALARS a short\nLOOKUP_TABLE default\n1\n"})).find("cells"),
              std::string::npos);
}

TEST(LegacyVtkHeader, RefusesWhatIsNoVoxel) {
    for (char const* const array :
         {"SCALARS a bit\nLOOKUP_TABLE default\n1 0 1 0 1 0 1 0\n",
          "SCALARS a char 2\nLOOKUP_TABLE default\n1 2 3 4 5 6 7 8 1 2 3 4 5 6 7 8\n", "SCALARS a string\n",
          "SCALARS a char 0\nLOOKUP_TABLE default\n", "SCALARS a char\n1 2 3 4 5 6 7 8\n",
          "VECTORS v float\n1 2 3 4 5 6 7 8 9 10 11 12 1 2 3 4 5 6 7 8 9 10 11 12\n", "nonsense\n",
          "SCALARS a short\nLOOKUP_TABLE default\n1 2 3 4 5 6 7\n", "FIELD f 1\nf 1 7 short\n1 2 3 4 5 6 7\n",
          "FIELD f 1\nf 9223372036854775807 9223372036854775807 int\n1"}) {
        EXPECT_NE(refusal(join({kStart, kSize, kPoints, array})), "") << array;
    }
    for (char const* const size : {"", "DIMENSIONS 2 2\n", "DIMENSIONS 2 2 3\n", "DIMENSIONS 0 2 2\n",
                                   "EXTENT 1 0 0 1 0 1\n", "EXTENT -9223372036854775808 9223372036854775807 0 1 0 1\n",
                                   "DIMENSIONS 9223372036854775807 9223372036854775807 2\n"}) {
        EXPECT_NE(refusal(join({kStart, size, kPoints, kScalars})), "") << size;
    }
}

TEST(LegacyVtkHeader, MayHaveMetadataBetweenArraysOfAField) {
    std::string const field = "FIELD f 2\na 1 8 short\n1 2 3 4 5 6 7 8\nMETADATA\nINFORMATION 0\n\n"
                              "b 1 8 short\n1 2 3 4 5 6 7 8\n";
    EXPECT_EQ(headerOf(join({kStart, kSize, kPoints}) + field).volume.type, ScalarType::Int16);
    std::string const endless = "FIELD f 9223372036854775807\nMETADATA\n\n";
    EXPECT_NE(refusal(join({kStart, kSize, kPoints}) + endless), "");
}

} // namespace
