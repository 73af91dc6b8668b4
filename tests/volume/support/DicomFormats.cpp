// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomWriter.h"
#include "TestFormats.h"

#include <utility>

namespace {

namespace fs = std::filesystem;

TestFormat slices(std::string name, E_TransferSyntax syntax) {
    TestFormat format;
    format.name = std::move(name);
    format.fileName = "series";
    format.write = [syntax](Phantom const& phantom, fs::path const& folder) {
        fs::create_directory(folder / "series");
        writeDicomSlices(phantom, folder / "series", syntax);
    };
    return format;
}

TestFormat jpeg2000(std::string name, E_TransferSyntax syntax, float ratio, double tolerance) {
    TestFormat format = slices(std::move(name), syntax);
    format.tolerance = tolerance;
    format.write = [syntax, ratio](Phantom const& phantom, fs::path const& folder) {
        fs::create_directory(folder / "series");
        writeDicomSlices(phantom, folder / "series", syntax, [&](DcmDataset& dataset, int z) {
            auto const pixels = static_cast<std::ptrdiff_t>(phantom.size[0] * phantom.size[1]);
            std::vector<std::int16_t> const slice(phantom.values.begin() + z * pixels,
                                                  phantom.values.begin() + (z + 1) * pixels);
            setFrames(dataset, syntax, {encodeJpeg2000(slice, phantom.size[0], phantom.size[1], ratio)});
        });
    };
    return format;
}

TestFormat enhanced(std::string name, E_TransferSyntax syntax) {
    TestFormat format;
    format.name = std::move(name);
    format.fileName = "enhanced.dcm";
    format.write = [syntax](Phantom const& phantom, fs::path const& folder) {
        DcmDataset dataset;
        fillEnhanced(dataset, phantom);
        saveDicom(dataset, folder / "enhanced.dcm", syntax);
    };
    return format;
}

// Names in capitals, as on a disc.
TestFormat directory() {
    TestFormat format;
    format.name = "DicomDirectory";
    format.fileName = "DICOMDIR";
    format.write = [](Phantom const& phantom, fs::path const& folder) {
        fs::create_directories(folder / "DATA" / "S1");
        writeDicomSlices(phantom, folder / "DATA" / "S1", EXS_LittleEndianExplicit);
        std::vector<std::string> ids;
        for (int z = 0; z < phantom.size[2]; ++z) {
            std::string const id = "I" + std::to_string(z);
            std::string number = std::to_string(z);
            number.insert(0, 4 - number.size(), '0');
            fs::rename(folder / "DATA" / "S1" / ("IM" + number + ".dcm"), folder / "DATA" / "S1" / id);
            ids.push_back("DATA\\S1\\" + id);
        }
        writeDicomDirectory(folder / "DICOMDIR", ids);
    };
    return format;
}

} // namespace

std::vector<TestFormat> dicomFormats() {
    return {slices("DicomImplicit", EXS_LittleEndianImplicit),
            slices("DicomExplicit", EXS_LittleEndianExplicit),
            slices("DicomBigEndian", EXS_BigEndianExplicit),
            slices("DicomDeflated", EXS_DeflatedLittleEndianExplicit),
            slices("DicomRle", EXS_RLELossless),
            slices("DicomJpegLossless", EXS_JPEGProcess14SV1),
            slices("DicomJpegLs", EXS_JPEGLSLossless),
            jpeg2000("DicomJpeg2000", EXS_JPEG2000LosslessOnly, 1, 0),
            jpeg2000("DicomJpeg2000Lossy", EXS_JPEG2000, 1.3F, 20),
            enhanced("DicomEnhanced", EXS_LittleEndianExplicit),
            enhanced("DicomEnhancedImplicit", EXS_LittleEndianImplicit),
            enhanced("DicomEnhancedJpegLs", EXS_JPEGLSLossless),
            directory()};
}
