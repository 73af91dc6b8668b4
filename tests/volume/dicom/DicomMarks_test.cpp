// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomMarks.h"

#include "support/files/TemporaryFolder.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::VolumeSource;

// Two echoes of three slices, one file each: slices 0 to 2 of a phantom of six are the later ones.
void writeEchoes(fs::path const& folder, bool isMarked) {
    Phantom const phantom = makePhantom(4, 3, 6);
    writeDicomSlices(phantom, folder, EXS_LittleEndianExplicit, [isMarked](DcmDataset& dataset, int z) {
        setElement(dataset, DCM_ImageOrientationPatient, "1\\0\\0\\0\\1\\0");
        setElement(dataset, DCM_ImagePositionPatient, "0\\0\\" + std::to_string(z % 3));
        if (isMarked) {
            setElement(dataset, DCM_EchoTime, z < 3 ? "100" : "20");
        }
    });
}

TEST(DicomMarks, AsksWhichOfSeveralFramesToTake) {
    TemporaryFolder const folder;
    writeEchoes(folder.path(), true);
    EXPECT_EQ(refusalOf(folder.path()), folder.path().string() +
                                            ": expected one volume, found 2 frames by echo time (20, 100); choose one "
                                            "with --frame, 0 to 1");
}

TEST(DicomMarks, GivesTheFrameThatIsAskedFor) {
    TemporaryFolder const folder;
    writeEchoes(folder.path(), true);
    VolumeSource source;
    source.path = folder.path();
    for (int const frame : {0, 1}) {
        source.frame = frame;
        auto const volume = readWhole(source);
        EXPECT_EQ(volume.header.frames, 2);
        EXPECT_EQ(volume.header.frame, frame);
        EXPECT_EQ(volume.header.size[2], 3);
        EXPECT_EQ(valueAt(volume, 2, 1, 2), makePhantom(4, 3, 6).at(2, 1, frame == 0 ? 5 : 2));
    }
    source.frame = 2;
    EXPECT_NE(refusalOf(source).find("choose one with --frame, 0 to 1"), std::string::npos);
}

TEST(DicomMarks, RefusesDoubledSlicesThatNothingTellsApart) {
    TemporaryFolder const folder;
    writeEchoes(folder.path(), false);
    EXPECT_NE(refusalOf(folder.path()).find("found IM0000.dcm and IM0003.dcm at the same"), std::string::npos);
}

TEST(DicomMarks, NameThePlaceWhereAFrameLacksASlice) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 9), folder.path(), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        setElement(dataset, DCM_ImageOrientationPatient, "1\\0\\0\\0\\1\\0");
        setElement(dataset, DCM_ImagePositionPatient, "0\\0\\" + std::to_string(z % 3));
        setElement(dataset, DCM_TemporalPositionIdentifier, std::to_string(z / 3));
    });
    fs::remove(folder / "IM0004.dcm");
    EXPECT_NE(refusalOf(folder.path()).find("found 2 at that of IM0001.dcm and 3 at that of IM0002.dcm"),
              std::string::npos)
        << refusalOf(folder.path());
}

TEST(DicomMarks, TakesTwoMarksTogetherWhereOneIsNotEnough) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 8), folder.path(), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        setElement(dataset, DCM_ImageOrientationPatient, "1\\0\\0\\0\\1\\0");
        setElement(dataset, DCM_ImagePositionPatient, "0\\0\\" + std::to_string(z % 2));
        setElement(dataset, DCM_EchoTime, z % 4 < 2 ? "10" : "20");
        setElement(dataset, DCM_TemporalPositionIdentifier, z < 4 ? "1" : "2");
    });
    VolumeSource source;
    source.path = folder.path();
    EXPECT_NE(refusalOf(source).find("4 frames by time / echo time (1 / 10, 1 / 20, 2 / 10, 2 / 20)"),
              std::string::npos);
    source.frame = 2;
    EXPECT_EQ(valueAt(readWhole(source), 0, 0, 0), makePhantom(4, 3, 8).at(0, 0, 4));
}

void addSegment(DcmDataset& dataset, std::string const& number, std::string const& name) {
    DcmItem* segment = nullptr;
    ASSERT_TRUE(dataset.findOrCreateSequenceItem(DCM_SegmentSequence, segment, -2).good());
    setElement(*segment, DCM_SegmentNumber, number);
    setElement(*segment, DCM_SegmentLabel, name);
}

TEST(DicomMarks, ChooseASegmentByItsName) {
    TemporaryFolder const folder;
    DcmDataset dataset;
    fillEnhanced(dataset, makePhantom(4, 3, 4));
    setElement(dataset, DCM_Modality, "SEG");
    for (int k = 0; k < 4; ++k) {
        DcmItem* groups = nullptr;
        DcmItem* group = nullptr;
        ASSERT_TRUE(dataset.findOrCreateSequenceItem(DCM_PerFrameFunctionalGroupsSequence, groups, k).good());
        ASSERT_TRUE(groups->findOrCreateSequenceItem(DCM_PlanePositionSequence, group, 0).good());
        setElement(*group, DCM_ImagePositionPatient, k % 2 == 0 ? "0\\0\\0" : "0\\1\\7");
        ASSERT_TRUE(groups->findOrCreateSequenceItem(DCM_SegmentIdentificationSequence, group, 0).good());
        setElement(*group, DCM_ReferencedSegmentNumber, k < 2 ? "2" : "1");
    }
    addSegment(dataset, "1", "liver");
    addSegment(dataset, "2", "kidney");
    saveDicom(dataset, folder / "seg.dcm", EXS_LittleEndianExplicit);
    VolumeSource source = sourceOf(folder / "seg.dcm");
    EXPECT_NE(refusalOf(source).find("2 frames by segment (1, 2); choose one with --frame, 0 to 1, or with --segment: "
                                     "\"liver\", \"kidney\""),
              std::string::npos)
        << refusalOf(source);
    source.segment = "kidney";
    EXPECT_EQ(valueAt(readWhole(source), 0, 0, 0), makePhantom(4, 3, 4).at(0, 0, 0));
    source.segment = "liver";
    EXPECT_EQ(valueAt(readWhole(source), 0, 0, 0), makePhantom(4, 3, 4).at(0, 0, 2));
    source.segment = "spleen";
    EXPECT_NE(refusalOf(source).find("found liver, kidney"), std::string::npos) << refusalOf(source);
}

} // namespace
