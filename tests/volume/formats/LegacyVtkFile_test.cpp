// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::ScalarType;
using tamo::volume::Volume;

std::string vtkFile(std::string const& encoding, std::string const& array, std::string const& numbers) {
    return "# vtk DataFile Version 4.2\ntitle\n" + encoding +
           "\nDATASET STRUCTURED_POINTS\nDIMENSIONS 2 2 2\nSPACING 1 1 1\nORIGIN 0 0 0\nPOINT_DATA 8\n" + array +
           numbers + "\n";
}

TEST(LegacyVtkFile, HoldsTheNumbersOfEachTypeInBytes) {
    TemporaryFolder const folder;
    struct Type {
        char const* name;
        ScalarType type;
        std::string two;
    };
    for (Type const& type : {Type{"unsigned_char", ScalarType::UInt8, "\2"},
                             {"char", ScalarType::Int8, "\2"},
                             {"signed_char", ScalarType::Int8, "\2"},
                             {"unsigned_short", ScalarType::UInt16, numberBytes(std::uint16_t{2}, true)},
                             {"SHORT", ScalarType::Int16, numberBytes(std::int16_t{2}, true)},
                             {"unsigned_int", ScalarType::UInt32, numberBytes(std::uint32_t{2}, true)},
                             {"int", ScalarType::Int32, numberBytes(std::int32_t{2}, true)},
                             {"vtkIdType", ScalarType::Int32, numberBytes(std::int32_t{2}, true)},
                             {"unsigned_long", ScalarType::UInt64, numberBytes(std::uint64_t{2}, true)},
                             {"long", ScalarType::Int64, numberBytes(std::int64_t{2}, true)},
                             {"vtktypeint64", ScalarType::Int64, numberBytes(std::int64_t{2}, true)},
                             {"float", ScalarType::Float32, numberBytes(2.0F, true)},
                             {"double", ScalarType::Float64, numberBytes(2.0, true)}}) {
        std::string const array = std::string("SCALARS a ") + type.name + " 1\nLOOKUP_TABLE default\n";
        std::string const numbers = std::string(7 * type.two.size(), '\0') + type.two;
        writeFile(folder / "a.vtk", vtkFile("BINARY", array, numbers));
        Volume const volume = readWhole(folder / "a.vtk");
        EXPECT_EQ(volume.header.type, type.type) << type.name;
        EXPECT_EQ(valueAt(volume, 1, 1, 1), 2) << type.name;
        EXPECT_EQ(valueAt(volume, 0, 1, 1), 0) << type.name;
    }
}

TEST(LegacyVtkFile, HoldsBytesWrittenAsColoursOfOneComponent) {
    TemporaryFolder const folder;
    std::string const array = "COLOR_SCALARS a 1\n";
    writeFile(folder / "b.vtk", vtkFile("BINARY", array, std::string("\0\1\2\3\4\xFD\xFE\xFF", 8)));
    writeFile(folder / "t.vtk",
              vtkFile("ASCII", array, "0 0.00392157 0.00784314 0.0117647 0.0156863 0.992157 0.996078 1"));
    for (char const* const name : {"b.vtk", "t.vtk"}) {
        Volume const volume = readWhole(folder / name);
        EXPECT_EQ(volume.header.type, ScalarType::UInt8);
        EXPECT_EQ(valueAt(volume, 1, 0, 0), 1) << name;
        EXPECT_EQ(valueAt(volume, 1, 0, 1), 253) << name;
        EXPECT_EQ(valueAt(volume, 1, 1, 1), 255) << name;
    }
    writeFile(folder / "t.vtk", vtkFile("ASCII", array, "0 0 0 0 0 0 0 1.5"));
    EXPECT_NE(refusalOf(folder / "t.vtk"), "");
}

TEST(LegacyVtkFile, RefusesTextThatIsNoNumberOfItsType) {
    TemporaryFolder const folder;
    std::string const array = "SCALARS a unsigned_char\nLOOKUP_TABLE default\n";
    writeFile(folder / "a.vtk", vtkFile("ASCII", array, "1 2 3 4 5 6 7 255"));
    EXPECT_EQ(valueAt(readWhole(folder / "a.vtk"), 1, 1, 1), 255);
    for (char const* const last : {"256", "-1", "1.5", "x"}) {
        writeFile(folder / "a.vtk", vtkFile("ASCII", array, std::string("1 2 3 4 5 6 7 ") + last));
        EXPECT_NE(refusalOf(folder / "a.vtk").find("expected a number"), std::string::npos) << last;
    }
}

TEST(LegacyVtkFile, HasOneFrame) {
    TemporaryFolder const folder;
    writeFile(folder / "a.vtk", vtkFile("ASCII", "SCALARS a int\nLOOKUP_TABLE default\n", "1 2 3 4 5 6 7 8"));
    tamo::volume::VolumeSource source;
    source.path = folder / "a.vtk";
    source.frame = 1;
    EXPECT_NE(refusalOf(source).find("--frame"), std::string::npos);
}

} // namespace
