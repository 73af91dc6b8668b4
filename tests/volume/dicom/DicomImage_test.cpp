// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomImage.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

// The line that a series is refused with after a change of all its slices.
std::string refusalAfter(std::function<void(DcmDataset&)> const& change) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 3), folder.path(), EXS_LittleEndianExplicit,
                     [&change](DcmDataset& dataset, int) { change(dataset); });
    return refusalOf(folder.path());
}

std::string refusalAfterSetting(DcmTagKey const& tag, std::string const& value) {
    return refusalAfter([&](DcmDataset& dataset) { setElement(dataset, tag, value); });
}

TEST(DicomImage, IsRefusedByTheNameOfItsSyntax) {
    std::map<E_TransferSyntax, std::string> const names{{EXS_MPEG2MainProfileAtMainLevel, "MPEG-2 main level"},
                                                        {EXS_HEVCMainProfileLevel5_1, "HEVC/H.265 main"}};
    for (auto const& [syntax, name] : names) {
        TemporaryFolder const folder;
        E_TransferSyntax const video = syntax;
        writeDicomSlices(makePhantom(4, 3, 2), folder.path(), syntax, [video](DcmDataset& dataset, int) {
            setFrames(dataset, video, {{1, 2, 3, 4}});
        });
        std::string const line = refusalOf(folder.path());
        EXPECT_NE(line.find("found " + name + "; convert"), std::string::npos) << line;
        EXPECT_EQ(line.find("damaged"), std::string::npos);
        EXPECT_EQ(refusalOf(folder / "IM0000.dcm").find("damaged"), std::string::npos);
    }
}

TEST(DicomImage, IsRefusedInColour) {
    EXPECT_NE(refusalAfterSetting(DCM_PhotometricInterpretation, "PALETTE COLOR").find("found a colour image"),
              std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_SamplesPerPixel, "3").find("one scalar per voxel"), std::string::npos);
}

TEST(DicomImage, IsRefusedWithALookupTable) {
    std::string const line = refusalAfter([](DcmDataset& dataset) {
        DcmItem* item = nullptr;
        ASSERT_TRUE(dataset.findOrCreateSequenceItem(DCM_ModalityLUTSequence, item, -2).good());
        setElement(*item, DCM_LUTExplanation, "density");
    });
    EXPECT_NE(line.find("found a modality lookup table"), std::string::npos) << line;
}

TEST(DicomImage, IsRefusedWithBitsThatCannotBe) {
    EXPECT_NE(refusalAfterSetting(DCM_BitsStored, "17").find("expected pixels of 1, 8, 16 or 32 bits"),
              std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_HighBit, "3").find("up to bit 3"), std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_BitsAllocated, "12").find("found 12 bits"), std::string::npos);
}

TEST(DicomImage, IsRefusedWithNumbersThatAreNone) {
    EXPECT_NE(refusalAfterSetting(DCM_RescaleSlope, "0").find("rescale slope other than 0"), std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_RescaleSlope, "nan").find("that are numbers"), std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_PixelSpacing, "0\\1").find("two positive numbers"), std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_ImageOrientationPatient, "1\\0\\0\\1\\0\\0").find("at right angles"),
              std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_ImagePositionPatient, "1\\2").find("position of 3 numbers"), std::string::npos);
}

TEST(DicomImage, IsRefusedWithFewerPixelsThanItClaims) {
    EXPECT_NE(refusalAfterSetting(DCM_Rows, "60000").find("damaged or truncated"), std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_NumberOfFrames, "2000000000").find("damaged or truncated"), std::string::npos);
    EXPECT_NE(refusalAfterSetting(DCM_NumberOfFrames, "-1").find("damaged or truncated"), std::string::npos);
}

TEST(DicomImage, OfTomographyIsInHounsfieldUnits) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 2), folder.path(), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int) {
        setElement(dataset, DCM_Modality, "CT");
        setElement(dataset, DCM_RescaleSlope, "2");
        setElement(dataset, DCM_RescaleIntercept, "-1024");
    });
    auto const header = readWhole(folder.path()).header;
    EXPECT_EQ(header.valueUnit, "HU");
    EXPECT_EQ(header.slope, 2);
    EXPECT_EQ(header.intercept, -1024);
    EXPECT_EQ(header.type, tamo::volume::ScalarType::Int16);
}

TEST(DicomImage, NotesWhatTheNumbersMean) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 2), folder.path(), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int) {
        setElement(dataset, DCM_PhotometricInterpretation, "MONOCHROME1");
        ASSERT_TRUE(dataset.putAndInsertSint16(DcmTag(DCM_PixelPaddingValue, EVR_SS), -2000).good());
        delete dataset.remove(DCM_PixelSpacing);
        setElement(dataset, DCM_ImagerPixelSpacing, "0.5\\0.25");
    });
    auto const header = readWhole(folder.path()).header;
    ASSERT_EQ(header.notes.size(), 3U);
    EXPECT_NE(header.notes[0].find("low values are bright"), std::string::npos);
    EXPECT_NE(header.notes[1].find("left as stored"), std::string::npos);
    EXPECT_NE(header.notes[2].find("detector"), std::string::npos);
    EXPECT_EQ(header.geometry.spacing[0], 0.25);
    EXPECT_EQ(header.geometry.spacing[1], 0.5);
}

TEST(DicomImage, AloneIsASlice) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 1), folder.path(), EXS_LittleEndianExplicit);
    EXPECT_NE(refusalOf(folder / "IM0000.dcm").find("found a single 2-D slice; give its folder"), std::string::npos);
}

} // namespace
