// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomSegments.h"

#include "support/files/TemporaryFolder.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::Volume;
using tamo::volume::VolumeSource;

// A frame shows a segment at a height, in steps of 2 mm.
struct Shown {
    int segment;
    int height;
};

// Writes a segmentation whose frame k has the pixels of slice k of a phantom.
VolumeSource writeSegments(fs::path const& path, std::vector<Shown> const& frames,
                           std::string const& modality = "SEG") {
    DcmDataset dataset;
    fillEnhanced(dataset, makePhantom(4, 3, static_cast<int>(frames.size())));
    setElement(dataset, DCM_Modality, modality);
    DcmItem* group = nullptr;
    for (std::size_t k = 0; k < frames.size(); ++k) {
        DcmItem* groups = nullptr;
        auto const index = static_cast<signed long>(k);
        EXPECT_TRUE(dataset.findOrCreateSequenceItem(DCM_PerFrameFunctionalGroupsSequence, groups, index).good());
        EXPECT_TRUE(groups->findOrCreateSequenceItem(DCM_PlanePositionSequence, group, 0).good());
        setElement(*group, DCM_ImagePositionPatient, "0\\0\\" + std::to_string(2 * frames[k].height));
        EXPECT_TRUE(groups->findOrCreateSequenceItem(DCM_SegmentIdentificationSequence, group, 0).good());
        setElement(*group, DCM_ReferencedSegmentNumber, std::to_string(frames[k].segment));
    }
    EXPECT_TRUE(dataset.findOrCreateSequenceItem(DCM_SharedFunctionalGroupsSequence, group, 0).good());
    DcmItem* orientation = nullptr;
    EXPECT_TRUE(group->findOrCreateSequenceItem(DCM_PlaneOrientationSequence, orientation, 0).good());
    setElement(*orientation, DCM_ImageOrientationPatient, "1\\0\\0\\0\\1\\0");
    for (std::string const number : {"1", "2"}) {
        EXPECT_TRUE(dataset.findOrCreateSequenceItem(DCM_SegmentSequence, group, -2).good());
        setElement(*group, DCM_SegmentNumber, number);
        setElement(*group, DCM_SegmentLabel, number == "1" ? "liver" : "kidney");
    }
    saveDicom(dataset, path, EXS_LittleEndianExplicit);
    return sourceOf(path);
}

// Which slice of the phantom each slice of a volume is, -1 for an empty one, 99 for none of them.
std::vector<int> slicesOf(Volume const& volume, int frames) {
    Phantom const phantom = makePhantom(4, 3, frames);
    std::vector<int> slices;
    for (int z = 0; z < volume.header.size[2]; ++z) {
        auto const isFrame = [&](int k) {
            for (int i = 0; i < 12; ++i) {
                if (valueAt(volume, i % 4, i / 4, z) != (k < 0 ? 0 : phantom.at(i % 4, i / 4, k))) {
                    return false;
                }
            }
            return true;
        };
        int k = -1;
        while (k < frames && !isFrame(k)) {
            ++k;
        }
        slices.push_back(k < frames ? k : 99);
    }
    return slices;
}

TEST(DicomSegments, ThatDoNotOverlapAreNotOne) {
    TemporaryFolder const folder;
    VolumeSource source = writeSegments(folder / "seg.dcm", {{1, 0}, {1, 1}, {2, 2}, {2, 3}});
    EXPECT_NE(refusalOf(source).find("2 frames by segment (1, 2)"), std::string::npos) << refusalOf(source);
    source.segment = "kidney";
    EXPECT_EQ(slicesOf(readWhole(source), 4), (std::vector<int>{-1, -1, 2, 3}));
    source.segment = "liver";
    EXPECT_EQ(slicesOf(readWhole(source), 4), (std::vector<int>{0, 1, -1, -1}));
}

TEST(DicomSegments, AreEmptyWhereOnlyOthersHaveFrames) {
    TemporaryFolder const folder;
    VolumeSource source = writeSegments(folder / "seg.dcm", {{1, 0}, {1, 1}, {1, 2}, {2, 1}});
    source.segment = "kidney";
    Volume const volume = readWhole(source);
    EXPECT_EQ(slicesOf(volume, 4), (std::vector<int>{-1, 3, -1}));
    EXPECT_EQ(volume.header.geometry.spacing[2], 2);
    ASSERT_FALSE(volume.header.notes.empty());
    EXPECT_NE(volume.header.notes.front().find("no frame for 2 of the slices"), std::string::npos);
}

TEST(DicomSegments, AreEmptyWhereNoneHasAFrame) {
    TemporaryFolder const folder;
    VolumeSource const source = writeSegments(folder / "seg.dcm", {{1, 0}, {1, 1}, {1, 4}});
    EXPECT_EQ(slicesOf(readWhole(source), 3), (std::vector<int>{0, 1, -1, -1, 2}));
}

TEST(DicomSegments, FillNoGapsOfOtherImages) {
    TemporaryFolder const folder;
    VolumeSource const source = writeSegments(folder / "mr.dcm", {{1, 0}, {1, 1}, {1, 3}}, "MR");
    EXPECT_NE(refusalOf(source).find("a slice is missing"), std::string::npos) << refusalOf(source);
}

// A header must not make a small file ask for gigabytes.
TEST(DicomSegments, FillNoGapThatIsEndless) {
    TemporaryFolder const folder;
    VolumeSource const source = writeSegments(folder / "seg.dcm", {{1, 0}, {1, 1}, {1, 100000000}});
    EXPECT_NE(refusalOf(source).find("slices are missing"), std::string::npos) << refusalOf(source);
}

} // namespace
