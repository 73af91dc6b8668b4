// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/formats/VolumeFormats.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::isDicom;
using tamo::volume::VolumeSource;

TEST(DicomFile, IsKnownByItsFirstBytes) {
    TemporaryFolder const folder;
    writeFile(folder / "magic", std::string(128, 'x') + "DICM");
    writeFile(folder / "short", std::string(128, 'x') + "DIC");
    writeFile(folder / "empty", "");
    writeFile(folder / "text", "The quick brown fox jumps over the lazy dog.");
    EXPECT_TRUE(isDicom(folder / "magic"));
    for (std::string const name : {"short", "empty", "text", "gone"}) {
        EXPECT_FALSE(isDicom(folder / name)) << name;
    }
    for (E_TransferSyntax const syntax : {EXS_LittleEndianImplicit, EXS_LittleEndianExplicit}) {
        DcmDataset dataset;
        fillSlice(dataset, makePhantom(4, 3, 1), 0);
        ASSERT_TRUE(dataset.saveFile((folder / "bare").c_str(), syntax).good());
        EXPECT_TRUE(isDicom(folder / "bare"));
    }
}

TEST(DicomFile, HasAnyName) {
    TemporaryFolder const folder;
    DcmDataset dataset;
    fillEnhanced(dataset, makePhantom(4, 3, 3));
    saveDicom(dataset, folder / "1.2.840.17", EXS_LittleEndianExplicit);
    EXPECT_EQ(readWhole(folder / "1.2.840.17").header.size[2], 3);
}

TEST(DicomFile, SaysItsFormatAndSeries) {
    TemporaryFolder const folder;
    DcmDataset dataset;
    fillEnhanced(dataset, makePhantom(16, 16, 3));
    saveDicom(dataset, folder / "a.dcm", EXS_JPEGLSLossless);
    auto const header = readWhole(folder / "a.dcm").header;
    EXPECT_EQ(header.format, "DICOM, JPEG-LS lossless");
    ASSERT_EQ(header.series.size(), 1U);
    EXPECT_EQ(header.series[0].number, "3");
    EXPECT_EQ(header.series[0].uid, "1.2.3.4");
    EXPECT_EQ(header.series[0].description, "phantom");
    EXPECT_EQ(header.series[0].slices, 3);
}

TEST(DicomFile, RefusesWhatItDoesNotHave) {
    TemporaryFolder const folder;
    DcmDataset dataset;
    fillEnhanced(dataset, makePhantom(4, 3, 3));
    saveDicom(dataset, folder / "a.dcm", EXS_LittleEndianExplicit);
    VolumeSource source;
    source.path = folder / "a.dcm";
    source.channel = 1;
    EXPECT_NE(refusalOf(source).find("expected a channel 1, found 1 channel"), std::string::npos);
    source.channel = 0;
    source.series = "7";
    EXPECT_NE(refusalOf(source).find("expected series 7, found 1 series: 3"), std::string::npos);
}

TEST(DicomFile, WithoutPixelsIsNoVolume) {
    TemporaryFolder const folder;
    DcmDataset report;
    setElement(report, DCM_SOPClassUID, UID_BasicTextSRStorage);
    setElement(report, DCM_SOPInstanceUID, "1.2.3");
    saveDicom(report, folder / "a.dcm", EXS_LittleEndianExplicit);
    EXPECT_NE(refusalOf(folder / "a.dcm").find("without pixels, such as a report"), std::string::npos);
}

TEST(DicomFile, ReadsNoMoreThanItsBox) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 5), folder.path(), EXS_RLELossless);
    VolumeSource source;
    source.path = folder.path();
    auto const file = tamo::volume::openVolume(source, {});
    // What is gone after the opening does not matter where it is not asked for.
    std::filesystem::remove(folder / "IM0004.dcm");
    int calls = 0;
    auto const count = [&calls](double) { return ++calls > 0; };
    EXPECT_EQ(valueAt(file->read({{0, 0, 1}, {3, 2, 2}}, count), 1, 1, 0), makePhantom(4, 3, 5).at(1, 1, 1));
    EXPECT_EQ(calls, 2);
    EXPECT_THROW(static_cast<void>(file->read({{0, 0, 4}, {3, 2, 4}}, {})), tamo::volume::Error);
}

} // namespace
