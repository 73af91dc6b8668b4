// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "FrameDecoder.h"

#include "Jpeg2000.h"
#include "RleFrame.h"

#include <dcmtk/config/osconfig.h>
#include <dcmtk/dcmdata/dcdatset.h>
#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcpixel.h>
#include <dcmtk/dcmdata/dcpixseq.h>
#include <dcmtk/dcmdata/dcpxitem.h>
#include <dcmtk/dcmdata/dcvrcs.h>
#include <dcmtk/dcmdata/dcvris.h>
#include <dcmtk/dcmdata/dcvrus.h>
#include <dcmtk/dcmjpeg/djdecode.h>
#include <dcmtk/dcmjpls/djdecode.h>
#include <dcmtk/oflog/oflog.h>

#include <cstring>
#include <memory>
#include <string>

namespace tamo::volume {

namespace {

// The decoders stand in registries of the process. The library's own logger is silenced, and no other.
void registerDecoders() {
    static bool const kIsDone = [] {
        OFLog::getLogger("dcmtk").setLogLevel(OFLogger::OFF_LOG_LEVEL);
        DJDecoderRegistration::registerCodecs();
        DJLSDecoderRegistration::registerCodecs();
        return true;
    }();
    static_cast<void>(kIsDone);
}

std::vector<unsigned char> joined(std::vector<std::vector<unsigned char>> const& fragments) {
    std::vector<unsigned char> bytes;
    for (auto const& fragment : fragments) {
        bytes.insert(bytes.end(), fragment.begin(), fragment.end());
    }
    return bytes;
}

// What the start of a JPEG or JPEG-LS frame says of its picture.
struct JpegStart {
    int marker = 0;
    int precision = 0;
    int rows = 0;
    int columns = 0;
    int components = 0;
};

JpegStart readJpegStart(std::vector<unsigned char> const& bytes) {
    std::size_t at = 2;
    while (at + 9 < bytes.size() && bytes[at] == 0xFF) {
        int const marker = bytes[at + 1];
        // Filling.
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        // SOF0 to SOF15, without DHT, JPG and DAC among them; and that of JPEG-LS.
        bool const isFrame =
            (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC) || marker == 0xF7;
        if (isFrame) {
            return {marker, bytes[at + 4], bytes[at + 5] << 8 | bytes[at + 6], bytes[at + 7] << 8 | bytes[at + 8],
                    bytes[at + 9]};
        }
        at += 2U + static_cast<std::size_t>(bytes[at + 2] << 8 | bytes[at + 3]);
    }
    throw BadFrame("no start of a JPEG frame");
}

// Each scan of a progressive frame goes over the whole picture and may take a few bytes; encoders make about 10. What
// is coded has no 0xFF before such a byte.
void checkScans(std::vector<unsigned char> const& bytes) {
    constexpr int kMostScans = 100;
    int scans = 0;
    for (std::size_t i = 1; i < bytes.size(); ++i) {
        scans += bytes[i - 1] == 0xFF && bytes[i] == 0xDA ? 1 : 0;
    }
    if (scans > kMostScans) {
        throw BadFrame("a JPEG frame of more than " + std::to_string(kMostScans) + " scans");
    }
}

// The transfer syntax by which the library chooses a decoder: by what the frame is, since it decides which pixels come
// out, and not by what its file calls it.
E_TransferSyntax syntaxOf(JpegStart const& start) {
    switch (start.marker) {
    case 0xC0:
        return EXS_JPEGProcess1;
    case 0xC1:
        return EXS_JPEGProcess2_4;
    case 0xC2:
        return EXS_JPEGProcess10_12;
    case 0xC3:
        return EXS_JPEGProcess14;
    case 0xF7:
        return EXS_JPEGLSLossless;
    default:
        throw BadFrame("a JPEG process that no decoder knows");
    }
}

void insertNumber(DcmDataset& dataset, DcmTagKey const& key, int number) {
    // With their types: the library's dictionary, a file of its own, is not needed then.
    auto element = std::make_unique<DcmUnsignedShort>(DcmTag(key, EVR_US));
    if (element->putUint16(static_cast<Uint16>(number)).bad() || dataset.insert(element.get()).bad()) {
        throw BadFrame("a frame that cannot be decoded");
    }
    static_cast<void>(element.release());
}

void insertText(DcmDataset& dataset, std::unique_ptr<DcmByteString> element, char const* text) {
    if (element->putString(text).bad() || dataset.insert(element.get()).bad()) {
        throw BadFrame("a frame that cannot be decoded");
    }
    static_cast<void>(element.release());
}

void describePicture(DcmDataset& dataset, CompressedFrame const& frame, int bitsAllocated, int bitsStored) {
    insertNumber(dataset, DCM_SamplesPerPixel, 1);
    insertText(dataset, std::make_unique<DcmCodeString>(DcmTag(DCM_PhotometricInterpretation, EVR_CS)), "MONOCHROME2");
    insertText(dataset, std::make_unique<DcmIntegerString>(DcmTag(DCM_NumberOfFrames, EVR_IS)), "1");
    insertNumber(dataset, DCM_Rows, frame.rows);
    insertNumber(dataset, DCM_Columns, frame.columns);
    insertNumber(dataset, DCM_BitsAllocated, bitsAllocated);
    insertNumber(dataset, DCM_BitsStored, bitsStored);
    insertNumber(dataset, DCM_HighBit, bitsStored - 1);
    insertNumber(dataset, DCM_PixelRepresentation, 0);
}

void appendPiece(DcmPixelSequence& sequence, std::vector<unsigned char> const& bytes) {
    auto item = std::make_unique<DcmPixelItem>(DcmTag(DCM_Item, EVR_OB));
    bool const isGood = bytes.empty() || item->putUint8Array(bytes.data(), bytes.size()).good();
    if (!isGood || sequence.insert(item.get()).bad()) {
        throw BadFrame("a frame that cannot be decoded");
    }
    static_cast<void>(item.release());
}

// Decodes through a dataset that holds nothing but this frame.
std::vector<unsigned char> decodeByLibrary(CompressedFrame const& frame, std::vector<unsigned char> const& bytes,
                                           E_TransferSyntax syntax, int bitsAllocated, int bitsStored) {
    registerDecoders();
    DcmDataset dataset;
    describePicture(dataset, frame, bitsAllocated, bitsStored);
    auto sequence = std::make_unique<DcmPixelSequence>(DcmTag(DCM_PixelData, EVR_OB));
    appendPiece(*sequence, {});
    appendPiece(*sequence, bytes);
    auto pixels = std::make_unique<DcmPixelData>(DcmTag(DCM_PixelData, EVR_OB));
    pixels->putOriginalRepresentation(syntax, nullptr, sequence.release());
    DcmPixelData& data = *pixels;
    if (dataset.insert(pixels.get()).bad()) {
        throw BadFrame("a frame that cannot be decoded");
    }
    static_cast<void>(pixels.release());

    std::size_t const size = static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows) *
                             static_cast<std::size_t>(bitsAllocated / 8);
    if (size > 0xFFFFFFFEU) {
        throw BadFrame("a frame of more than 4 GB");
    }
    // The library wants an even size.
    std::vector<unsigned char> decoded(size + size % 2);
    Uint32 fragment = 0;
    OFString colours;
    OFCondition const result =
        data.getUncompressedFrame(&dataset, 0, fragment, decoded.data(), static_cast<Uint32>(decoded.size()), colours);
    if (result.bad()) {
        throw BadFrame("damaged or truncated data");
    }
    decoded.resize(size);
    return decoded;
}

template <typename Target, typename Source>
std::vector<unsigned char> converted(Source const* source, std::size_t count) {
    std::vector<unsigned char> bytes(count * sizeof(Target));
    for (std::size_t i = 0; i < count; ++i) {
        auto const value = static_cast<Target>(source[i]);
        std::memcpy(bytes.data() + i * sizeof(Target), &value, sizeof(Target));
    }
    return bytes;
}

std::vector<unsigned char> decodeJpeg(CompressedFrame const& frame, std::vector<unsigned char> const& bytes) {
    JpegStart const start = readJpegStart(bytes);
    if (start.columns != frame.columns || start.rows != frame.rows || start.components != 1) {
        throw BadFrame("a JPEG frame of another size");
    }
    if (start.precision < 2 || start.precision > 16 || start.precision > frame.bitsAllocated) {
        throw BadFrame("a JPEG frame of " + std::to_string(start.precision) + " bits");
    }
    checkScans(bytes);
    // Frames of few bits may stand in a file of pixels of 16.
    int const bits = start.precision > 8 ? 16 : 8;
    std::vector<unsigned char> decoded = decodeByLibrary(frame, bytes, syntaxOf(start), bits, start.precision);
    return bits < frame.bitsAllocated ? converted<std::uint16_t>(decoded.data(), decoded.size()) : decoded;
}

std::vector<unsigned char> decodeJ2k(CompressedFrame const& frame, std::vector<unsigned char> const& bytes) {
    std::vector<std::int32_t> const values = decodeJpeg2000(bytes, frame.columns, frame.rows);
    if (frame.bitsAllocated == 8) {
        return converted<std::uint8_t>(values.data(), values.size());
    }
    return frame.bitsAllocated == 16 ? converted<std::uint16_t>(values.data(), values.size())
                                     : converted<std::uint32_t>(values.data(), values.size());
}

} // namespace

std::vector<unsigned char> decodeFrame(CompressedFrame const& frame) {
    std::vector<unsigned char> const bytes = joined(frame.fragments);
    if (frame.encoding == FrameEncoding::Jpeg2000) {
        return decodeJ2k(frame, bytes);
    }
    if (frame.encoding == FrameEncoding::Rle) {
        // Not by the library, which reads past the end of frames that are shorter than their header.
        std::size_t const pixels = static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows);
        return decodeRle(bytes, pixels, static_cast<std::size_t>(frame.bitsAllocated / 8));
    }
    return decodeJpeg(frame, bytes);
}

} // namespace tamo::volume
