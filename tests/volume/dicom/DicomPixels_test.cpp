// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomPixels.h"

#include "support/files/TemporaryFolder.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::ScalarType;
using tamo::volume::Volume;

Volume readAfter(Phantom const& phantom, E_TransferSyntax syntax, ChangeSlice const& change) {
    TemporaryFolder const folder;
    writeDicomSlices(phantom, folder.path(), syntax, change);
    return readWhole(folder.path());
}

void setBits(DcmDataset& dataset, int allocated, int stored, int high, bool isSigned) {
    setElement(dataset, DCM_BitsAllocated, std::to_string(allocated));
    setElement(dataset, DCM_BitsStored, std::to_string(stored));
    setElement(dataset, DCM_HighBit, std::to_string(high));
    setElement(dataset, DCM_PixelRepresentation, isSigned ? "1" : "0");
}

TEST(DicomPixels, TakeTheBitsThatAreInUse) {
    Phantom phantom = makePhantom(2, 2, 2);
    // 12 bits, moved up by 2; the others are overlays and the like: -1, the least, the greatest, 5.
    for (auto& value : phantom.values) {
        value = static_cast<std::int16_t>(0xC000 | 5 << 2 | 3);
    }
    phantom.values[0] = static_cast<std::int16_t>(0xFFF << 2 | 1);
    phantom.values[1] = static_cast<std::int16_t>(0x4000 | 0x800 << 2);
    phantom.values[2] = static_cast<std::int16_t>(0x8000 | 0x7FF << 2);
    auto const read = [&phantom](bool isSigned) {
        return readAfter(phantom, EXS_LittleEndianExplicit,
                         [isSigned](DcmDataset& dataset, int) { setBits(dataset, 16, 12, 13, isSigned); });
    };
    Volume const number = read(true);
    EXPECT_EQ(number.header.type, ScalarType::Int16);
    EXPECT_EQ(valueAt(number, 0, 0, 0), -1);
    EXPECT_EQ(valueAt(number, 1, 0, 0), -2048);
    EXPECT_EQ(valueAt(number, 0, 1, 0), 2047);
    EXPECT_EQ(valueAt(number, 1, 1, 0), 5);
    Volume const amount = read(false);
    EXPECT_EQ(amount.header.type, ScalarType::UInt16);
    EXPECT_EQ(valueAt(amount, 0, 0, 0), 4095);
    EXPECT_EQ(valueAt(amount, 1, 0, 0), 2048);
}

TEST(DicomPixels, AreRescaledSliceBySlice) {
    Phantom const phantom = makePhantom(4, 3, 3);
    Volume const volume = readAfter(phantom, EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        setElement(dataset, DCM_RescaleSlope, std::to_string(50 * (z + 1)));
        setElement(dataset, DCM_RescaleIntercept, "0.5");
    });
    EXPECT_EQ(volume.header.type, ScalarType::Float32);
    EXPECT_EQ(volume.header.slope, 1);
    EXPECT_EQ(volume.header.intercept, 0);
    for (int z = 0; z < 3; ++z) {
        EXPECT_EQ(valueAt(volume, 3, 2, z), 50 * (z + 1) * phantom.at(3, 2, z) + 0.5);
    }
}

TEST(DicomPixels, OfDifferentSignsBecomeFloats) {
    Phantom phantom = makePhantom(4, 3, 2);
    phantom.values.assign(phantom.values.size(), -2);
    Volume const volume = readAfter(phantom, EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        setElement(dataset, DCM_PixelRepresentation, z == 0 ? "1" : "0");
    });
    EXPECT_EQ(volume.header.type, ScalarType::Float32);
    EXPECT_EQ(valueAt(volume, 0, 0, 0), -2);
    EXPECT_EQ(valueAt(volume, 0, 0, 1), 65534);
}

// In pairs of bytes that a big-endian file turns around, an odd number per row.
TEST(DicomPixels, OfEightBitsStandInWords) {
    for (E_TransferSyntax const syntax : {EXS_LittleEndianExplicit, EXS_BigEndianExplicit}) {
        TemporaryFolder const folder;
        writeDicomSlices(makePhantom(5, 3, 2), folder.path(), syntax, [](DcmDataset& dataset, int z) {
            setBits(dataset, 8, 8, 7, false);
            std::vector<Uint16> words(8);
            for (int i = 0; i < 8; ++i) {
                words[static_cast<std::size_t>(i)] =
                    static_cast<Uint16>((2 * i + 1 + 100 * z) << 8 | (2 * i + 100 * z));
            }
            ASSERT_TRUE(dataset.putAndInsertUint16Array(DcmTag(DCM_PixelData, EVR_OW), words.data(), 8).good());
        });
        tamo::volume::VolumeSource source;
        source.path = folder.path();
        auto const file = tamo::volume::openVolume(source, {});
        Volume const volume = file->read({{1, 1, 0}, {4, 2, 1}}, {});
        EXPECT_EQ(volume.header.type, ScalarType::UInt8);
        EXPECT_EQ(valueAt(volume, 0, 0, 0), 6);
        EXPECT_EQ(valueAt(volume, 3, 1, 0), 14);
        EXPECT_EQ(valueAt(volume, 2, 0, 1), 108);
    }
}

TEST(DicomPixels, OfOneBitAreLabels) {
    TemporaryFolder const folder;
    DcmDataset dataset;
    fillEnhanced(dataset, makePhantom(3, 3, 2));
    setElement(dataset, DCM_Modality, "SEG");
    setElement(dataset, DCM_SegmentationType, "BINARY");
    DcmItem* segment = nullptr;
    ASSERT_TRUE(dataset.findOrCreateSequenceItem(DCM_SegmentSequence, segment, -2).good());
    setElement(*segment, DCM_SegmentNumber, "1");
    setElement(*segment, DCM_SegmentLabel, "liver");
    setBits(dataset, 1, 1, 0, false);
    // 18 pixels: 1 at every third, the least significant bit first.
    std::vector<Uint8> const bytes{0b01001001, 0b10010010, 0b00000000, 0};
    ASSERT_TRUE(dataset.putAndInsertUint8Array(DcmTag(DCM_PixelData, EVR_OB), bytes.data(), 4).good());
    saveDicom(dataset, folder / "seg.dcm", EXS_LittleEndianExplicit);
    Volume const volume = readWhole(folder / "seg.dcm");
    EXPECT_TRUE(volume.header.isLabelMap);
    ASSERT_EQ(volume.header.labels.size(), 1U);
    EXPECT_EQ(volume.header.labels[0].name, "liver");
    for (int i = 0; i < 18; ++i) {
        EXPECT_EQ(valueAt(volume, i % 3, i / 3 % 3, i / 9), i % 3 == 0 && i < 16 ? 1 : 0) << i;
    }
}

TEST(DicomPixels, MayBeFloats) {
    Volume const volume = readAfter(makePhantom(2, 2, 2), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        delete dataset.remove(DCM_PixelData);
        setElement(dataset, DCM_BitsAllocated, "32");
        std::vector<Float32> const values{0.5F, 1.5F, -2.5F, static_cast<Float32>(z)};
        auto element = std::make_unique<DcmOtherFloat>(DcmTag(DCM_FloatPixelData, EVR_OF));
        ASSERT_TRUE(element->putFloat32Array(values.data(), 4).good());
        ASSERT_TRUE(dataset.insert(element.release()).good());
    });
    EXPECT_EQ(volume.header.type, ScalarType::Float32);
    EXPECT_EQ(valueAt(volume, 0, 1, 0), -2.5);
    EXPECT_EQ(valueAt(volume, 1, 1, 1), 1);
}

// Three frames, each cut in pieces: the table of offsets says which belong together.
TEST(DicomPixels, FindThePiecesOfEachFrame) {
    TemporaryFolder const folder;
    Phantom const phantom = makePhantom(64, 64, 3);
    std::vector<std::vector<unsigned char>> frames;
    for (int z = 0; z < 3; ++z) {
        auto const first = phantom.values.begin() + z * 4096;
        frames.push_back(encodeJpeg2000({first, first + 4096}, 64, 64, 1));
    }
    DcmDataset dataset;
    fillEnhanced(dataset, phantom);
    setFrames(dataset, EXS_JPEG2000LosslessOnly, frames, 1024);
    saveDicom(dataset, folder / "pieces.dcm", EXS_JPEG2000LosslessOnly);
    auto const volume = readWhole(folder / "pieces.dcm");
    for (int z = 0; z < 3; ++z) {
        EXPECT_EQ(valueAt(volume, 63, 63, z), phantom.at(63, 63, z));
    }
}

TEST(DicomPixels, LoseNoDigitsOfWideNumbersThatAreRescaledSliceBySlice) {
    constexpr Uint32 kWide = (1U << 24U) + 1;
    Volume const volume = readAfter(makePhantom(2, 2, 3), EXS_LittleEndianExplicit, [](DcmDataset& dataset, int z) {
        setBits(dataset, 32, 32, 31, false);
        setElement(dataset, DCM_RescaleSlope, "1");
        setElement(dataset, DCM_RescaleIntercept, std::to_string(z));
        std::array<Uint16, 8> words{};
        for (std::size_t i = 0; i < words.size(); ++i) {
            words[i] = i % 2 == 0 ? kWide & 0xFFFFU : kWide >> 16U;
        }
        ASSERT_TRUE(dataset.putAndInsertUint16Array(DCM_PixelData, words.data(), words.size()).good());
    });
    EXPECT_EQ(volume.header.type, ScalarType::Float64);
    EXPECT_EQ(valueAt(volume, 1, 1, 2), kWide + 2);
}

} // namespace
