// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomFrames.h"

#include "support/files/TemporaryFolder.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <chrono>

namespace {

namespace fs = std::filesystem;
using tamo::volume::ScalarType;
using tamo::volume::Volume;

void save(Phantom const& phantom, fs::path const& path, std::function<void(DcmDataset&)> const& change) {
    DcmDataset dataset;
    fillEnhanced(dataset, phantom);
    change(dataset);
    saveDicom(dataset, path, EXS_LittleEndianExplicit);
}

DcmItem& groupOf(DcmDataset& dataset, int frame, DcmTagKey const& sequence) {
    DcmItem* groups = nullptr;
    DcmItem* group = nullptr;
    if (dataset.findOrCreateSequenceItem(DCM_PerFrameFunctionalGroupsSequence, groups, frame).bad() ||
        groups->findOrCreateSequenceItem(sequence, group, 0).bad()) {
        throw std::runtime_error("no such frame");
    }
    return *group;
}

TEST(DicomFrames, AreRescaledEachInItsOwnWay) {
    TemporaryFolder const folder;
    Phantom const phantom = makePhantom(4, 3, 3);
    save(phantom, folder / "a.dcm", [](DcmDataset& dataset) {
        for (int z = 0; z < 3; ++z) {
            DcmItem& group = groupOf(dataset, z, DCM_PixelValueTransformationSequence);
            setElement(group, DCM_RescaleSlope, "0.5");
            setElement(group, DCM_RescaleIntercept, std::to_string(1000 * z));
        }
    });
    Volume const volume = readWhole(folder / "a.dcm");
    EXPECT_EQ(volume.header.type, ScalarType::Float32);
    EXPECT_EQ(valueAt(volume, 3, 2, 2), 0.5 * phantom.at(3, 2, 2) + 2000);
}

TEST(DicomFrames, AreOrderedByTheirPlaces) {
    TemporaryFolder const folder;
    Phantom const phantom = makePhantom(4, 3, 3);
    save(phantom, folder / "a.dcm", [](DcmDataset& dataset) {
        OFString first;
        OFString last;
        groupOf(dataset, 0, DCM_PlanePositionSequence).findAndGetOFStringArray(DCM_ImagePositionPatient, first);
        groupOf(dataset, 2, DCM_PlanePositionSequence).findAndGetOFStringArray(DCM_ImagePositionPatient, last);
        setElement(groupOf(dataset, 0, DCM_PlanePositionSequence), DCM_ImagePositionPatient, last.c_str());
        setElement(groupOf(dataset, 2, DCM_PlanePositionSequence), DCM_ImagePositionPatient, first.c_str());
    });
    Volume const volume = readWhole(folder / "a.dcm");
    EXPECT_EQ(valueAt(volume, 1, 1, 0), phantom.at(1, 1, 2));
    EXPECT_EQ(valueAt(volume, 1, 1, 2), phantom.at(1, 1, 0));
}

TEST(DicomFrames, OfSeveralTimesAreChosenFrom) {
    TemporaryFolder const folder;
    save(makePhantom(4, 3, 4), folder / "a.dcm", [](DcmDataset& dataset) {
        for (int k = 0; k < 4; ++k) {
            setElement(groupOf(dataset, k, DCM_PlanePositionSequence), DCM_ImagePositionPatient,
                       "0\\0\\" + std::to_string(10 * (k / 2)));
            ASSERT_TRUE(groupOf(dataset, k, DCM_FrameContentSequence)
                            .putAndInsertUint32(DCM_TemporalPositionIndex, static_cast<Uint32>(k % 2 + 1))
                            .good());
        }
        DcmItem* shared = nullptr;
        DcmItem* plane = nullptr;
        ASSERT_TRUE(dataset.findOrCreateSequenceItem(DCM_SharedFunctionalGroupsSequence, shared, 0).good());
        ASSERT_TRUE(shared->findOrCreateSequenceItem(DCM_PlaneOrientationSequence, plane, 0).good());
        setElement(*plane, DCM_ImageOrientationPatient, "1\\0\\0\\0\\1\\0");
    });
    tamo::volume::VolumeSource source;
    source.path = folder / "a.dcm";
    EXPECT_NE(refusalOf(source).find("found 2 frames by time"), std::string::npos) << refusalOf(source);
    source.frame = 1;
    Volume const volume = readWhole(source);
    EXPECT_EQ(volume.header.size[2], 2);
    EXPECT_EQ(volume.header.geometry.spacing[2], 10);
    EXPECT_EQ(valueAt(volume, 0, 0, 1), makePhantom(4, 3, 4).at(0, 0, 3));
}

TEST(DicomFrames, WithoutPlacesFollowOneAnother) {
    TemporaryFolder const folder;
    auto const plain = [&folder](bool hasDistance) {
        save(makePhantom(4, 3, 3), folder / "a.dcm", [hasDistance](DcmDataset& dataset) {
            delete dataset.remove(DCM_PerFrameFunctionalGroupsSequence);
            delete dataset.remove(DCM_SharedFunctionalGroupsSequence);
            setElement(dataset, DCM_ImagePositionPatient, "1\\2\\3");
            setElement(dataset, DCM_ImageOrientationPatient, "0\\1\\0\\0\\0\\1");
            setElement(dataset, DCM_PixelSpacing, "3\\2");
            if (hasDistance) {
                setElement(dataset, DCM_SpacingBetweenSlices, "4");
            }
        });
        return readWhole(folder / "a.dcm").header;
    };
    auto const known = plain(true);
    EXPECT_EQ(known.geometry.spacing, (tamo::Vector3{2, 3, 4}));
    EXPECT_EQ(known.geometry.axes[2], (tamo::Vector3{1, 0, 0}));
    EXPECT_EQ(known.notes.size(), 1U);
    auto const unknown = plain(false);
    EXPECT_FALSE(unknown.geometry.isSpacingKnown);
    EXPECT_EQ(unknown.notes.size(), 2U);
}

TEST(DicomFrames, OfDosesLieAtTheirOffsets) {
    TemporaryFolder const folder;
    save(makePhantom(4, 3, 3), folder / "a.dcm", [](DcmDataset& dataset) {
        delete dataset.remove(DCM_PerFrameFunctionalGroupsSequence);
        setElement(dataset, DCM_Modality, "RTDOSE");
        setElement(dataset, DCM_ImagePositionPatient, "1\\2\\3");
        setElement(dataset, DCM_ImageOrientationPatient, "1\\0\\0\\0\\1\\0");
        setElement(dataset, DCM_GridFrameOffsetVector, "0\\2.5\\5");
        setElement(dataset, DCM_DoseGridScaling, "0.01");
        setElement(dataset, DCM_DoseUnits, "GY");
        delete dataset.remove(DCM_SharedFunctionalGroupsSequence);
    });
    auto const header = readWhole(folder / "a.dcm").header;
    EXPECT_EQ(header.geometry.spacing[2], 2.5);
    EXPECT_EQ(header.slope, 0.01);
    EXPECT_EQ(header.valueUnit, "GY");
}

// Each pair of marks is tried: thousands of them would take hours.
TEST(DicomFrames, OfThousandsOfDimensionsAreRefusedAtOnce) {
    TemporaryFolder const folder;
    save(makePhantom(4, 3, 4), folder / "a.dcm", [](DcmDataset& dataset) {
        std::vector<Uint32> const indices(4000, 1);
        for (int k = 0; k < 4; ++k) {
            setElement(groupOf(dataset, k, DCM_PlanePositionSequence), DCM_ImagePositionPatient,
                       "0\\0\\" + std::to_string(10 * (k / 2)));
            ASSERT_TRUE(groupOf(dataset, k, DCM_FrameContentSequence)
                            .putAndInsertUint32Array(DCM_DimensionIndexValues, indices.data(), indices.size())
                            .good());
        }
    });
    auto const start = std::chrono::steady_clock::now();
    EXPECT_NE(refusalOf(folder / "a.dcm").find("at the same"), std::string::npos);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
