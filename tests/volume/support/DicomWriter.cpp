// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomWriter.h"

#include <dcmtk/dcmdata/dcpxitem.h>
#include <dcmtk/dcmdata/dcrleerg.h>
#include <dcmtk/dcmdata/dcrlerp.h>
#include <dcmtk/dcmjpeg/djencode.h>
#include <dcmtk/dcmjpls/djencode.h>
#include <openjpeg.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace {

void check(OFCondition const& condition) {
    if (condition.bad()) {
        throw std::runtime_error(condition.text());
    }
}

// At most the 16 characters of a decimal string.
std::string decimal(double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.9g", number);
    return text.data();
}

template <typename Numbers> std::string decimals(Numbers const& numbers) {
    std::string text;
    for (double const number : numbers) {
        text += (text.empty() ? "" : "\\") + decimal(number);
    }
    return text;
}

std::string positionOf(Phantom const& phantom, int z) {
    std::array<double, 3> position = phantom.origin;
    for (std::size_t i = 0; i < 3; ++i) {
        position[i] += z * phantom.spacing[2] * phantom.axes[2][i];
    }
    return decimals(position);
}

std::string orientationOf(Phantom const& phantom) {
    return decimals(phantom.axes[0]) + "\\" + decimals(phantom.axes[1]);
}

std::string pixelSpacingOf(Phantom const& phantom) {
    return decimal(phantom.spacing[1]) + "\\" + decimal(phantom.spacing[0]);
}

void fillPicture(DcmDataset& dataset, Phantom const& phantom, std::int16_t const* values, std::size_t count) {
    setElement(dataset, DCM_SamplesPerPixel, "1");
    setElement(dataset, DCM_PhotometricInterpretation, "MONOCHROME2");
    setElement(dataset, DCM_Rows, std::to_string(phantom.size[1]));
    setElement(dataset, DCM_Columns, std::to_string(phantom.size[0]));
    setElement(dataset, DCM_BitsAllocated, "16");
    setElement(dataset, DCM_BitsStored, "16");
    setElement(dataset, DCM_HighBit, "15");
    setElement(dataset, DCM_PixelRepresentation, "1");
    std::vector<Uint16> words(count);
    std::memcpy(words.data(), values, 2 * count);
    check(dataset.putAndInsertUint16Array(DCM_PixelData, words.data(), count));
}

void fillSeries(DcmDataset& dataset, char const* sopClass) {
    setElement(dataset, DCM_SOPClassUID, sopClass);
    setElement(dataset, DCM_SOPInstanceUID, "1.2.826.0.1.3680043.8.498.1");
    setElement(dataset, DCM_Modality, "MR");
    setElement(dataset, DCM_SeriesDescription, "phantom");
    setElement(dataset, DCM_SeriesInstanceUID, "1.2.3.4");
    setElement(dataset, DCM_SeriesNumber, "3");
}

// The encoders stand in registries of the process as long as this does.
class Encoders {
  public:
    Encoders() {
        // It says what it does with each picture.
        OFLog::getLogger("dcmtk.dcmimgle").setLogLevel(OFLogger::ERROR_LOG_LEVEL);
        DcmRLEEncoderRegistration::registerCodecs();
        DJEncoderRegistration::registerCodecs();
        // The library's other encoder ("cooked") writes past its buffer where a small picture does not shrink.
        DJLSEncoderRegistration::registerCodecs(0, 0, 0, 0, /*preferCookedEncoding=*/OFFalse);
    }
    ~Encoders() {
        DJLSEncoderRegistration::cleanup();
        DJEncoderRegistration::cleanup();
        DcmRLEEncoderRegistration::cleanup();
    }
    Encoders(Encoders const&) = delete;
    Encoders& operator=(Encoders const&) = delete;
};

void compress(DcmDataset& dataset, E_TransferSyntax syntax) {
    static Encoders const kEncoders;
    check(dataset.chooseRepresentation(syntax, nullptr));
}

OPJ_SIZE_T appendOutput(void* bytes, OPJ_SIZE_T count, void* user) {
    auto& output = *static_cast<std::vector<unsigned char>*>(user);
    auto const* const first = static_cast<unsigned char const*>(bytes);
    output.insert(output.end(), first, first + count);
    return count;
}

} // namespace

void setElement(DcmItem& dataset, DcmTagKey const& tag, std::string const& value) {
    check(dataset.putAndInsertString(tag, value.c_str()));
}

void fillSlice(DcmDataset& dataset, Phantom const& phantom, int z) {
    fillSeries(dataset, UID_MRImageStorage);
    setElement(dataset, DCM_InstanceNumber, std::to_string(z + 1));
    setElement(dataset, DCM_ImagePositionPatient, positionOf(phantom, z));
    setElement(dataset, DCM_ImageOrientationPatient, orientationOf(phantom));
    setElement(dataset, DCM_PixelSpacing, pixelSpacingOf(phantom));
    std::size_t const count = static_cast<std::size_t>(phantom.size[0]) * static_cast<std::size_t>(phantom.size[1]);
    fillPicture(dataset, phantom, &phantom.values[static_cast<std::size_t>(z) * count], count);
}

void saveDicom(DcmDataset& dataset, std::filesystem::path const& path, E_TransferSyntax syntax) {
    bool const isLibrarys = syntax == EXS_RLELossless || syntax == EXS_JPEGProcess14SV1 || syntax == EXS_JPEGLSLossless;
    if (isLibrarys) {
        compress(dataset, syntax);
    }
    DcmFileFormat file(&dataset);
    check(file.saveFile(path.c_str(), syntax, EET_UndefinedLength));
}

void writeDicomSlices(Phantom const& phantom, std::filesystem::path const& folder, E_TransferSyntax syntax,
                      ChangeSlice const& change) {
    for (int z = 0; z < phantom.size[2]; ++z) {
        DcmDataset dataset;
        fillSlice(dataset, phantom, z);
        if (change) {
            change(dataset, z);
        }
        std::array<char, 32> name{};
        std::snprintf(name.data(), name.size(), "IM%04d.dcm", z);
        saveDicom(dataset, folder / name.data(), syntax);
    }
}

void setFrames(DcmDataset& dataset, E_TransferSyntax syntax, std::vector<std::vector<unsigned char>> const& frames,
               std::size_t bytesPerPiece) {
    auto sequence = std::make_unique<DcmPixelSequence>(DcmTag(DCM_PixelData, EVR_OB));
    auto table = std::make_unique<DcmPixelItem>(DcmTag(DCM_Item, EVR_OB));
    DcmPixelItem& offsets = *table;
    check(sequence->insert(table.release()));
    DcmOffsetList places;
    for (std::vector<unsigned char> frame : frames) {
        check(sequence->storeCompressedFrame(places, frame.data(), static_cast<Uint32>(frame.size()),
                                             static_cast<Uint32>(bytesPerPiece / 1024)));
    }
    check(offsets.createOffsetTable(places));
    auto pixels = std::make_unique<DcmPixelData>(DcmTag(DCM_PixelData, EVR_OB));
    pixels->putOriginalRepresentation(syntax, nullptr, sequence.release());
    check(dataset.insert(pixels.release(), /*replaceOld=*/true));
}

std::vector<unsigned char> encodeJpeg2000(std::vector<std::int16_t> const& values, int columns, int rows, float ratio,
                                          int precinctSide) {
    opj_image_cmptparm_t shape{};
    shape.dx = shape.dy = 1;
    shape.w = static_cast<OPJ_UINT32>(columns);
    shape.h = static_cast<OPJ_UINT32>(rows);
    shape.prec = 16;
    shape.sgnd = 1;
    std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)> const image(opj_image_create(1, &shape, OPJ_CLRSPC_GRAY),
                                                                           opj_image_destroy);
    image->x1 = shape.w;
    image->y1 = shape.h;
    std::copy(values.begin(), values.end(), image->comps[0].data);
    opj_cparameters_t parameters;
    opj_set_default_encoder_parameters(&parameters);
    parameters.tcp_numlayers = 1;
    parameters.cp_disto_alloc = 1;
    parameters.tcp_rates[0] = ratio;
    parameters.irreversible = ratio > 1 ? 1 : 0;
    parameters.numresolution = 3;
    if (precinctSide > 0) {
        // Bit 0 says that there are such.
        parameters.csty |= 1;
        parameters.res_spec = 1;
        parameters.prcw_init[0] = parameters.prch_init[0] = precinctSide;
    }
    std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)> const codec(opj_create_compress(OPJ_CODEC_J2K),
                                                                           opj_destroy_codec);
    std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)> const stream(opj_stream_default_create(OPJ_FALSE),
                                                                              opj_stream_destroy);
    std::vector<unsigned char> bytes;
    opj_stream_set_user_data(stream.get(), &bytes, nullptr);
    opj_stream_set_write_function(stream.get(), appendOutput);
    if (opj_setup_encoder(codec.get(), &parameters, image.get()) == OPJ_FALSE ||
        opj_start_compress(codec.get(), image.get(), stream.get()) == OPJ_FALSE ||
        opj_encode(codec.get(), stream.get()) == OPJ_FALSE ||
        opj_end_compress(codec.get(), stream.get()) == OPJ_FALSE) {
        throw std::runtime_error("cannot encode");
    }
    return bytes;
}

void fillEnhanced(DcmDataset& dataset, Phantom const& phantom) {
    fillSeries(dataset, UID_EnhancedMRImageStorage);
    setElement(dataset, DCM_NumberOfFrames, std::to_string(phantom.size[2]));
    fillPicture(dataset, phantom, phantom.values.data(), phantom.values.size());
    DcmItem* shared = nullptr;
    DcmItem* group = nullptr;
    check(dataset.findOrCreateSequenceItem(DCM_SharedFunctionalGroupsSequence, shared, -2));
    check(shared->findOrCreateSequenceItem(DCM_PlaneOrientationSequence, group, -2));
    setElement(*group, DCM_ImageOrientationPatient, orientationOf(phantom));
    check(shared->findOrCreateSequenceItem(DCM_PixelMeasuresSequence, group, -2));
    setElement(*group, DCM_PixelSpacing, pixelSpacingOf(phantom));
    for (int z = 0; z < phantom.size[2]; ++z) {
        DcmItem* frame = nullptr;
        check(dataset.findOrCreateSequenceItem(DCM_PerFrameFunctionalGroupsSequence, frame, -2));
        check(frame->findOrCreateSequenceItem(DCM_PlanePositionSequence, group, -2));
        setElement(*group, DCM_ImagePositionPatient, positionOf(phantom, z));
    }
}

void writeDicomDirectory(std::filesystem::path const& path, std::vector<std::string> const& fileIds) {
    DcmDataset dataset;
    setElement(dataset, DCM_SOPClassUID, UID_MediaStorageDirectoryStorage);
    setElement(dataset, DCM_SOPInstanceUID, "1.2.826.0.1.3680043.8.498.2");
    DcmItem* record = nullptr;
    check(dataset.findOrCreateSequenceItem(DCM_DirectoryRecordSequence, record, -2));
    setElement(*record, DCM_DirectoryRecordType, "PATIENT");
    for (std::string const& id : fileIds) {
        check(dataset.findOrCreateSequenceItem(DCM_DirectoryRecordSequence, record, -2));
        setElement(*record, DCM_DirectoryRecordType, "IMAGE");
        setElement(*record, DCM_ReferencedFileID, id);
    }
    saveDicom(dataset, path, EXS_LittleEndianExplicit);
}
