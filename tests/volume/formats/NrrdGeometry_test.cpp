// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/NrrdGeometry.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace {

using tamo::Vector3;
using tamo::volume::GridGeometry;
using tamo::volume::VolumeHeader;

std::string const kIdentity = "space directions: (1,0,0) (0,1,0) (0,0,1)\n";
std::string const kSkewed = "space directions: (0,2,0) (0,0,-3) (4,0,4)\nspace origin: (1,2,3)\n";

VolumeHeader headerWith(std::string const& fields, std::int64_t frames = 1) {
    TemporaryFolder const folder;
    writeFile(folder / "a.nrrd", "NRRD0005\ndimension: 3\nsizes: 3 5 9\n" + fields + "\n");
    tamo::volume::HeaderLines lines(folder / "a.nrrd");
    auto const header = readNrrdHeader(lines, folder / "a.nrrd");
    VolumeHeader volume;
    volume.frames = frames;
    applyNrrdGeometry(volume, header);
    applySegments(volume, header);
    return volume;
}

GridGeometry geometryWith(std::string const& fields) { return headerWith(fields).geometry; }

TEST(NrrdGeometry, WithoutDirectionsIsThatOfIdentityInLps) {
    GridGeometry const assumed = geometryWith("spacings: 1 1 1\n");
    GridGeometry const stated = geometryWith("space: LPS\n" + kIdentity);
    EXPECT_FALSE(assumed.areAxesKnown);
    EXPECT_TRUE(stated.areAxesKnown);
    EXPECT_EQ(assumed.axes, stated.axes);
    EXPECT_EQ(assumed.spacing, stated.spacing);
    EXPECT_EQ(assumed.origin, stated.origin);
    EXPECT_FALSE(stated.isOriginKnown);
}

TEST(NrrdGeometry, TurnsTheSpacesOfPatientsIntoLps) {
    std::vector<std::pair<std::string, Vector3>> const spaces{
        {"LPS", {1, 1, 1}},   {"left-posterior-superior", {1, 1, 1}},
        {"RAS", {-1, -1, 1}}, {"right-anterior-superior", {-1, -1, 1}},
        {"las", {1, -1, 1}},  {"Left-Anterior-Superior", {1, -1, 1}}};
    for (auto const& [space, signs] : spaces) {
        GridGeometry const geometry = geometryWith("space: " + space + "\n" + kSkewed);
        EXPECT_TRUE(geometry.areAxesKnown && geometry.isSpacingKnown && geometry.isOriginKnown);
        EXPECT_EQ(geometry.axes[0], (Vector3{0, signs[1], 0})) << space;
        EXPECT_EQ(geometry.axes[1], (Vector3{0, 0, -1})) << space;
        EXPECT_NEAR(geometry.axes[2][0], signs[0] * std::sqrt(0.5), 1e-12) << space;
        EXPECT_EQ(geometry.origin, (Vector3{signs[0], signs[1] * 2, 3})) << space;
        EXPECT_EQ(geometry.spacing, (Vector3{2, 3, std::sqrt(32)})) << space;
    }
}

TEST(NrrdGeometry, OfOtherSpacesIsKeptWithoutAPatient) {
    for (std::string const space : {"space: scanner-xyz\n", "space: 3D-right-handed\n", "space dimension: 3\n", ""}) {
        VolumeHeader const header = headerWith(space + kSkewed);
        EXPECT_FALSE(header.geometry.areAxesKnown) << space;
        EXPECT_TRUE(header.geometry.isSpacingKnown && header.geometry.isOriginKnown) << space;
        EXPECT_EQ(header.geometry.axes[1], (Vector3{0, 0, -1})) << space;
        EXPECT_EQ(header.notes.size(), 1U) << space;
    }
}

TEST(NrrdGeometry, OfSpacesWithTimeIsThatOfSpace) {
    GridGeometry const geometry =
        geometryWith("space: right-anterior-superior-time\nspace directions: (2,0,0,0) (0,1,0,0) (0,0,1,0)\n"
                     "space origin: (1,2,3,4)\n");
    EXPECT_EQ(geometry.axes[0], (Vector3{-1, 0, 0}));
    EXPECT_EQ(geometry.origin, (Vector3{-1, -2, 3}));
    EXPECT_THROW(geometryWith("space: RAST\nspace directions: (2,0,0,1) (0,1,0,0) (0,0,1,0)\n"), std::runtime_error);
    EXPECT_THROW(geometryWith("space: RAS\nspace directions: none (0,1,0) (0,0,1)\n"), std::runtime_error);
}

TEST(NrrdGeometry, TakesSpacingsThatAreKnown) {
    GridGeometry const geometry = geometryWith("spacings: 2 -3 4\n");
    EXPECT_EQ(geometry.spacing, (Vector3{2, 3, 4}));
    EXPECT_EQ(geometry.axes[1], (Vector3{0, -1, 0}));
    EXPECT_TRUE(geometry.isSpacingKnown);
    VolumeHeader const partly = headerWith("spacings: 2 nan 4\n");
    EXPECT_EQ(partly.geometry.spacing, (Vector3{2, 1, 4}));
    EXPECT_FALSE(partly.geometry.isSpacingKnown);
    EXPECT_EQ(partly.notes.size(), 1U);
    EXPECT_FALSE(geometryWith("spacings: nan nan nan\n").isSpacingKnown);
}

TEST(NrrdGeometry, TakesSpacingsFromTheEndsOfAxesWhoseCentersAreSaid) {
    std::string const ends = "axis mins: 0 0 0\naxis maxs: 6 8 18\n";
    EXPECT_EQ(geometryWith(ends + "centers: cell node cell\n").spacing, (Vector3{2, 2, 2}));
    EXPECT_EQ(geometryWith(ends + "centerings: node node node\n").spacing, (Vector3{3, 2, 2.25}));
    EXPECT_FALSE(geometryWith(ends).isSpacingKnown);
    EXPECT_EQ(geometryWith("spacings: 5 5 5\ncenters: cell cell cell\n" + ends).spacing, (Vector3{5, 5, 5}));
}

TEST(NrrdGeometry, GivesLengthsInMillimetres) {
    GridGeometry const spaced = geometryWith("spacings: 2000 3000 4\nunits: \"um\" \"um\" \"mm\"\n");
    EXPECT_EQ(spaced.spacing, (Vector3{2, 3, 4}));
    GridGeometry const directed =
        geometryWith("space: LPS\nspace units: \"cm\" \"cm\" \"cm\"\nspace origin: (1,2,3)\n" + kIdentity);
    EXPECT_EQ(directed.spacing, (Vector3{10, 10, 10}));
    EXPECT_EQ(directed.origin, (Vector3{10, 20, 30}));
    EXPECT_EQ(directed.fileUnit, "cm");
    EXPECT_EQ(headerWith("spacings: 2 3 4\nunits: \"pixel\" \"pixel\" \"pixel\"\n").notes.size(), 1U);
}

TEST(NrrdGeometry, NamesTheLabelsOfSegments) {
    VolumeHeader const header = headerWith("Segment0_ID:=s\nSegment0_Name:=left kidney\nSegment0_LabelValue:=3\n"
                                           "Segment0_Layer:=1\nSegment12_ID:=Segment_12\nSegment12_LabelValue:=7\n",
                                           2);
    EXPECT_TRUE(header.isLabelMap);
    ASSERT_EQ(header.labels.size(), 2U);
    EXPECT_EQ(header.labels[0].name, "left kidney");
    EXPECT_EQ(header.labels[0].value, 3);
    EXPECT_EQ(header.labels[0].frame, 1);
    EXPECT_EQ(header.labels[1].name, "Segment_12");
    EXPECT_EQ(header.labels[1].value, 7);
    EXPECT_EQ(header.labels[1].frame, 0);
}

TEST(NrrdGeometry, HasAFrameForEachSegmentWithoutValues) {
    VolumeHeader const header = headerWith("Segment0_Name:=a\nSegment1_Name:=b\nSegment2_Name:=c\n", 2);
    ASSERT_EQ(header.labels.size(), 2U);
    EXPECT_EQ(header.labels[1].frame, 1);
    EXPECT_EQ(header.labels[1].value, 1);
    EXPECT_EQ(header.notes.size(), 1U);
}

TEST(NrrdGeometry, IsOfLabelsOnlyWhereSegmentsAreStated) {
    EXPECT_TRUE(headerWith("Segmentation_ReferenceImageExtentOffset:=0 0 0\n").isLabelMap);
    EXPECT_FALSE(headerWith("Segments:=1\nSegment_Name:=a\nSegmentx_Name:=a\n").isLabelMap);
}

} // namespace
