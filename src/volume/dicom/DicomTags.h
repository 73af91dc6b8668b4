// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tamo::volume::dicom {

// The elements that volumes are made from. Names are those of the standard's dictionary.
inline constexpr std::uint32_t kMediaStorageSopClass = 0x00020002;
inline constexpr std::uint32_t kTransferSyntax = 0x00020010;
inline constexpr std::uint32_t kDirectoryRecords = 0x00041220;
inline constexpr std::uint32_t kRecordInUse = 0x00041410;
inline constexpr std::uint32_t kReferencedFile = 0x00041500;
inline constexpr std::uint32_t kCharacterSet = 0x00080005;
inline constexpr std::uint32_t kImageType = 0x00080008;
inline constexpr std::uint32_t kSopClass = 0x00080016;
inline constexpr std::uint32_t kModality = 0x00080060;
inline constexpr std::uint32_t kSeriesDescription = 0x0008103E;
inline constexpr std::uint32_t kSliceThickness = 0x00180050;
inline constexpr std::uint32_t kEchoTime = 0x00180081;
inline constexpr std::uint32_t kEchoNumbers = 0x00180086;
inline constexpr std::uint32_t kSpacingBetweenSlices = 0x00180088;
inline constexpr std::uint32_t kTriggerTime = 0x00181060;
inline constexpr std::uint32_t kImagerPixelSpacing = 0x00181164;
inline constexpr std::uint32_t kEffectiveEchoTime = 0x00189082;
inline constexpr std::uint32_t kDiffusionBValue = 0x00189087;
inline constexpr std::uint32_t kMrEchoSequence = 0x00189114;
inline constexpr std::uint32_t kMrDiffusionSequence = 0x00189117;
inline constexpr std::uint32_t kSeriesUid = 0x0020000E;
inline constexpr std::uint32_t kSeriesNumber = 0x00200011;
inline constexpr std::uint32_t kAcquisitionNumber = 0x00200012;
inline constexpr std::uint32_t kInstanceNumber = 0x00200013;
inline constexpr std::uint32_t kPosition = 0x00200032;
inline constexpr std::uint32_t kOrientation = 0x00200037;
inline constexpr std::uint32_t kTemporalPosition = 0x00200100;
inline constexpr std::uint32_t kFrameContentSequence = 0x00209111;
inline constexpr std::uint32_t kPlanePositionSequence = 0x00209113;
inline constexpr std::uint32_t kPlaneOrientationSequence = 0x00209116;
inline constexpr std::uint32_t kTemporalPositionIndex = 0x00209128;
inline constexpr std::uint32_t kDimensionIndexValues = 0x00209157;
inline constexpr std::uint32_t kSamplesPerPixel = 0x00280002;
inline constexpr std::uint32_t kPhotometric = 0x00280004;
inline constexpr std::uint32_t kNumberOfFrames = 0x00280008;
inline constexpr std::uint32_t kRows = 0x00280010;
inline constexpr std::uint32_t kColumns = 0x00280011;
inline constexpr std::uint32_t kPixelSpacing = 0x00280030;
inline constexpr std::uint32_t kBitsAllocated = 0x00280100;
inline constexpr std::uint32_t kBitsStored = 0x00280101;
inline constexpr std::uint32_t kHighBit = 0x00280102;
inline constexpr std::uint32_t kPixelRepresentation = 0x00280103;
inline constexpr std::uint32_t kPixelPadding = 0x00280120;
inline constexpr std::uint32_t kRescaleIntercept = 0x00281052;
inline constexpr std::uint32_t kRescaleSlope = 0x00281053;
inline constexpr std::uint32_t kRescaleType = 0x00281054;
inline constexpr std::uint32_t kModalityLut = 0x00283000;
inline constexpr std::uint32_t kPixelMeasuresSequence = 0x00289110;
inline constexpr std::uint32_t kPixelValueSequence = 0x00289145;
inline constexpr std::uint32_t kPetUnits = 0x00541001;
inline constexpr std::uint32_t kSegmentationType = 0x00620001;
inline constexpr std::uint32_t kSegmentSequence = 0x00620002;
inline constexpr std::uint32_t kSegmentNumber = 0x00620004;
inline constexpr std::uint32_t kSegmentLabel = 0x00620005;
inline constexpr std::uint32_t kSegmentIdentificationSequence = 0x0062000A;
inline constexpr std::uint32_t kReferencedSegment = 0x0062000B;
inline constexpr std::uint32_t kGridFrameOffsets = 0x3004000C;
inline constexpr std::uint32_t kDoseUnits = 0x30040002;
inline constexpr std::uint32_t kDoseScaling = 0x3004000E;
inline constexpr std::uint32_t kSharedGroups = 0x52009229;
inline constexpr std::uint32_t kPerFrameGroups = 0x52009230;
inline constexpr std::uint32_t kFloatPixels = 0x7FE00008;
inline constexpr std::uint32_t kDoublePixels = 0x7FE00009;
inline constexpr std::uint32_t kPixels = 0x7FE00010;

/// An element and the type that it has in files which do not state types.
struct Element {
    std::uint32_t tag;
    std::string_view type;
};

/// All elements that are read, pixels apart, in the order of their tags.
inline constexpr std::array kElements{Element{kMediaStorageSopClass, "UI"},
                                      Element{kTransferSyntax, "UI"},
                                      Element{kDirectoryRecords, "SQ"},
                                      Element{kRecordInUse, "US"},
                                      Element{kReferencedFile, "CS"},
                                      Element{kCharacterSet, "CS"},
                                      Element{kImageType, "CS"},
                                      Element{kSopClass, "UI"},
                                      Element{kModality, "CS"},
                                      Element{kSeriesDescription, "LO"},
                                      Element{kSliceThickness, "DS"},
                                      Element{kEchoTime, "DS"},
                                      Element{kEchoNumbers, "IS"},
                                      Element{kSpacingBetweenSlices, "DS"},
                                      Element{kTriggerTime, "DS"},
                                      Element{kImagerPixelSpacing, "DS"},
                                      Element{kEffectiveEchoTime, "FD"},
                                      Element{kDiffusionBValue, "FD"},
                                      Element{kMrEchoSequence, "SQ"},
                                      Element{kMrDiffusionSequence, "SQ"},
                                      Element{kSeriesUid, "UI"},
                                      Element{kSeriesNumber, "IS"},
                                      Element{kAcquisitionNumber, "IS"},
                                      Element{kInstanceNumber, "IS"},
                                      Element{kPosition, "DS"},
                                      Element{kOrientation, "DS"},
                                      Element{kTemporalPosition, "IS"},
                                      Element{kFrameContentSequence, "SQ"},
                                      Element{kPlanePositionSequence, "SQ"},
                                      Element{kPlaneOrientationSequence, "SQ"},
                                      Element{kTemporalPositionIndex, "UL"},
                                      Element{kDimensionIndexValues, "UL"},
                                      Element{kSamplesPerPixel, "US"},
                                      Element{kPhotometric, "CS"},
                                      Element{kNumberOfFrames, "IS"},
                                      Element{kRows, "US"},
                                      Element{kColumns, "US"},
                                      Element{kPixelSpacing, "DS"},
                                      Element{kBitsAllocated, "US"},
                                      Element{kBitsStored, "US"},
                                      Element{kHighBit, "US"},
                                      Element{kPixelRepresentation, "US"},
                                      Element{kPixelPadding, "US"},
                                      Element{kRescaleIntercept, "DS"},
                                      Element{kRescaleSlope, "DS"},
                                      Element{kRescaleType, "LO"},
                                      Element{kModalityLut, "SQ"},
                                      Element{kPixelMeasuresSequence, "SQ"},
                                      Element{kPixelValueSequence, "SQ"},
                                      Element{kPetUnits, "CS"},
                                      Element{kSegmentationType, "CS"},
                                      Element{kSegmentSequence, "SQ"},
                                      Element{kSegmentNumber, "US"},
                                      Element{kSegmentLabel, "LO"},
                                      Element{kSegmentIdentificationSequence, "SQ"},
                                      Element{kReferencedSegment, "US"},
                                      Element{kDoseUnits, "CS"},
                                      Element{kGridFrameOffsets, "DS"},
                                      Element{kDoseScaling, "DS"},
                                      Element{kSharedGroups, "SQ"},
                                      Element{kPerFrameGroups, "SQ"}};

} // namespace tamo::volume::dicom
