// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomDataset.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/dicom/DicomTags.h"
#include "volume/support/DicomWriter.h"

#include <gtest/gtest.h>

namespace {

namespace dicom = tamo::volume::dicom;
using tamo::volume::DicomDataset;
using tamo::volume::DicomHeader;
using tamo::volume::PixelData;
using tamo::volume::readDicomHeader;

TEST(DicomDataset, TakesNumbersFromTextAndBinary) {
    DicomDataset dataset;
    dataset.add(dicom::kPosition, {"-1.5\\2e1\\ 3 ", {}, {}});
    dataset.add(dicom::kRows, {{}, {512}, {}});
    EXPECT_EQ(dataset.numbers(dicom::kPosition), (std::vector<double>{-1.5, 20, 3}));
    EXPECT_EQ(dataset.whole(dicom::kRows), 512);
    EXPECT_FALSE(dataset.whole(dicom::kPosition).has_value());
    EXPECT_FALSE(dataset.number(dicom::kColumns).has_value());
}

TEST(DicomDataset, TakesNothingForANumberThatIsNone) {
    for (std::string const text : {"", "x", "1x", "nan", "inf", "1e999", "1\\", "1\\\\2", "0x10"}) {
        DicomDataset dataset;
        dataset.add(dicom::kPosition, {text, {}, {}});
        std::size_t const expected = text == "1\\" ? 1 : 0;
        EXPECT_EQ(dataset.numbers(dicom::kPosition).size(), expected) << text;
    }
}

TEST(DicomDataset, IsTheSameInEveryUncompressedSyntax) {
    TemporaryFolder const folder;
    for (E_TransferSyntax const syntax : {EXS_LittleEndianImplicit, EXS_LittleEndianExplicit, EXS_BigEndianExplicit,
                                          EXS_DeflatedLittleEndianExplicit}) {
        DcmDataset written;
        fillEnhanced(written, makePhantom(4, 3, 2));
        saveDicom(written, folder / "a.dcm", syntax);
        DicomHeader const header = readDicomHeader(folder / "a.dcm");
        EXPECT_EQ(header.dataset.whole(dicom::kRows), 3);
        EXPECT_EQ(header.dataset.whole(dicom::kColumns), 4);
        EXPECT_EQ(header.dataset.text(dicom::kSeriesDescription), "phantom");
        ASSERT_EQ(header.dataset.items(dicom::kPerFrameGroups).size(), 2U);
        EXPECT_EQ(header.pixels.kind, PixelData::Kind::Integer);
        EXPECT_EQ(header.pixels.bytes, 48U);
    }
}

TEST(DicomDataset, MayStandWithoutAFileHeader) {
    TemporaryFolder const folder;
    for (E_TransferSyntax const syntax : {EXS_LittleEndianImplicit, EXS_LittleEndianExplicit}) {
        DcmDataset dataset;
        fillSlice(dataset, makePhantom(4, 3, 1), 0);
        ASSERT_TRUE(dataset.saveFile((folder / "a").c_str(), syntax).good());
        DicomHeader const header = readDicomHeader(folder / "a");
        EXPECT_EQ(header.dataset.whole(dicom::kColumns), 4);
        EXPECT_EQ(header.pixels.bytes, 24U);
    }
}

} // namespace
