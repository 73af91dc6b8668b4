// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomStack.h"

#include "support/files/TemporaryFolder.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

namespace fs = std::filesystem;
using tamo::volume::GridGeometry;
using tamo::volume::Volume;

// Slices in the plane of x and y, at the heights given; the phantom has as many slices.
void writeAt(fs::path const& folder, std::vector<std::string> const& positions) {
    writeDicomSlices(makePhantom(4, 3, static_cast<int>(positions.size())), folder, EXS_LittleEndianExplicit,
                     [&positions](DcmDataset& dataset, int z) {
                         setElement(dataset, DCM_ImageOrientationPatient, "1\\0\\0\\0\\1\\0");
                         setElement(dataset, DCM_ImagePositionPatient, positions[static_cast<std::size_t>(z)]);
                     });
}

TEST(DicomStack, NamesTheSlicesBesideAGap) {
    TemporaryFolder const folder;
    writeAt(folder.path(), {"0\\0\\0", "0\\0\\1.25", "0\\0\\2.5", "0\\0\\5", "0\\0\\6.25"});
    EXPECT_EQ(refusalOf(folder.path()), folder.path().string() +
                                            ": expected slices 1.25 mm apart, found 2.5 mm between IM0002.dcm and "
                                            "IM0003.dcm: a slice is missing");
}

TEST(DicomStack, RefusesStepsThatDifferByMoreThanAThousandth) {
    TemporaryFolder const folder;
    writeAt(folder.path(), {"0\\0\\0", "0\\0\\10", "0\\0\\20", "0\\0\\30.02000"});
    std::string const line = refusalOf(folder.path());
    EXPECT_NE(line.find("found 10.02 mm between IM0002.dcm and IM0003.dcm"), std::string::npos) << line;
    writeAt(folder.path(), {"0\\0\\0", "0\\0\\10", "0\\0\\20", "0\\0\\30.00500"});
    EXPECT_EQ(refusalOf(folder.path()), "");
}

TEST(DicomStack, AllowsForTheDecimalsOfPositions) {
    TemporaryFolder const folder;
    // Steps of 0.6249 mm, written with three decimals.
    writeAt(folder.path(), {"0\\0\\0.000", "0\\0\\0.625", "0\\0\\1.250", "0\\0\\1.875", "0\\0\\2.499"});
    EXPECT_NEAR(readWhole(folder.path()).header.geometry.spacing[2], 2.499 / 4, 1e-12);
}

TEST(DicomStack, KeepsTheTiltOfTheGantry) {
    TemporaryFolder const folder;
    writeAt(folder.path(), {"-1\\0\\0", "-1\\0.75\\2", "-1\\1.5\\4"});
    GridGeometry const geometry = readWhole(folder.path()).header.geometry;
    double const length = std::sqrt(0.75 * 0.75 + 4);
    EXPECT_NEAR(geometry.spacing[2], length, 1e-12);
    EXPECT_NEAR(geometry.axes[2][1], 0.75 / length, 1e-12);
    EXPECT_NEAR(geometry.axes[2][2], 2 / length, 1e-12);
    EXPECT_EQ(geometry.axes[1], (tamo::Vector3{0, 1, 0}));
    EXPECT_EQ(geometry.origin, (tamo::Vector3{-1, 0, 0}));
}

TEST(DicomStack, OrdersSlicesByPlaceAndNotByName) {
    TemporaryFolder const folder;
    writeAt(folder.path(), {"0\\0\\4", "0\\0\\0", "0\\0\\2"});
    Phantom const phantom = makePhantom(4, 3, 3);
    Volume const volume = readWhole(folder.path());
    EXPECT_EQ(valueAt(volume, 1, 2, 0), phantom.at(1, 2, 1));
    EXPECT_EQ(valueAt(volume, 1, 2, 1), phantom.at(1, 2, 2));
    EXPECT_EQ(valueAt(volume, 1, 2, 2), phantom.at(1, 2, 0));
}

TEST(DicomStack, NamesDoubledSlices) {
    TemporaryFolder const folder;
    writeAt(folder.path(), {"0\\0\\0", "0\\0\\1", "0\\0\\1", "0\\0\\2"});
    EXPECT_NE(refusalOf(folder.path()).find("one slice at each place, found IM0001.dcm and IM0002.dcm"),
              std::string::npos);
}

TEST(DicomStack, RefusesSlicesOfAnotherOrientationSizeOrSpacing) {
    std::vector<std::pair<DcmTagKey, std::string>> const changes{
        {DCM_ImageOrientationPatient, "0\\1\\0\\0\\0\\1"}, {DCM_PixelSpacing, "1\\1.01"}, {DCM_Rows, "2"}};
    std::vector<std::string> const found{"one orientation", "one pixel spacing", "one size"};
    for (std::size_t i = 0; i < changes.size(); ++i) {
        TemporaryFolder const folder;
        writeDicomSlices(makePhantom(4, 3, 3), folder.path(), EXS_LittleEndianExplicit,
                         [&](DcmDataset& dataset, int z) {
                             setElement(dataset, DCM_PixelSpacing, "1\\1");
                             if (z == 1) {
                                 setElement(dataset, changes[i].first, changes[i].second);
                             }
                         });
        std::string const line = refusalOf(folder.path());
        EXPECT_NE(line.find(found[i]), std::string::npos) << line;
        EXPECT_NE(line.find("IM0001.dcm"), std::string::npos) << line;
    }
}

TEST(DicomStack, OrdersSlicesWithoutPlacesByNumber) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 3), folder.path(), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        delete dataset.remove(DCM_ImagePositionPatient);
        delete dataset.remove(DCM_ImageOrientationPatient);
        setElement(dataset, DCM_InstanceNumber, std::to_string(9 - z));
    });
    Volume const volume = readWhole(folder.path());
    EXPECT_EQ(valueAt(volume, 3, 1, 0), makePhantom(4, 3, 3).at(3, 1, 2));
    EXPECT_FALSE(volume.header.geometry.areAxesKnown);
    EXPECT_FALSE(volume.header.geometry.isSpacingKnown);
    ASSERT_EQ(volume.header.notes.size(), 2U);
    EXPECT_NE(volume.header.notes[0].find("no slice states where it lies"), std::string::npos);
}

TEST(DicomStack, RefusesNumbersWithAGapWhereNothingStatesAPlace) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 4), folder.path(), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        delete dataset.remove(DCM_ImagePositionPatient);
        delete dataset.remove(DCM_ImageOrientationPatient);
        setElement(dataset, DCM_InstanceNumber, std::to_string(z < 2 ? z : z + 1));
    });
    EXPECT_NE(refusalOf(folder.path()).find("numbers 1 and 3 of IM0001.dcm and IM0002.dcm: a slice is missing"),
              std::string::npos)
        << refusalOf(folder.path());
}

TEST(DicomStack, KeepsThePlaceOfPlainFramesOfUnknownDistance) {
    TemporaryFolder const folder;
    DcmDataset dataset;
    fillEnhanced(dataset, makePhantom(4, 3, 3));
    delete dataset.remove(DCM_SharedFunctionalGroupsSequence);
    delete dataset.remove(DCM_PerFrameFunctionalGroupsSequence);
    setElement(dataset, DCM_ImagePositionPatient, "1\\2\\3");
    setElement(dataset, DCM_ImageOrientationPatient, "0\\1\\0\\0\\0\\-1");
    setElement(dataset, DCM_PixelSpacing, "2\\2");
    saveDicom(dataset, folder / "plain.dcm", EXS_LittleEndianExplicit);
    auto const geometry = readWhole(folder / "plain.dcm").header.geometry;
    EXPECT_TRUE(geometry.areAxesKnown);
    EXPECT_FALSE(geometry.isSpacingKnown);
    EXPECT_EQ(geometry.origin, (tamo::Vector3{1, 2, 3}));
    EXPECT_EQ(geometry.axes[0], (tamo::Vector3{0, 1, 0}));
    EXPECT_EQ(geometry.spacing, (tamo::Vector3{2, 2, 1}));
}

TEST(DicomStack, RefusesSlicesOfWhichSomeLackTheirPlace) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 3), folder.path(), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        if (z == 2) {
            delete dataset.remove(DCM_ImagePositionPatient);
        }
    });
    EXPECT_NE(refusalOf(folder.path()).find("a position and an orientation of every slice, found none in IM0002.dcm"),
              std::string::npos);
}

TEST(DicomStack, RefusesAFrameThatDoesNotExist) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 3), folder.path(), EXS_LittleEndianExplicit);
    tamo::volume::VolumeSource source;
    source.path = folder.path();
    source.frame = 1;
    EXPECT_NE(refusalOf(source).find("expected a frame 1, found 1 frame; leave out --frame"), std::string::npos);
    source.frame = 0;
    EXPECT_EQ(refusalOf(source), "");
}

} // namespace
