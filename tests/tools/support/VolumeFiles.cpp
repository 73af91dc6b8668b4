// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeFiles.h"

#include <vtkMetaImageWriter.h>
#include <vtkNew.h>
#include <vtkPNGWriter.h>
#include <vtkXMLImageDataWriter.h>

#include <tiffio.h>
#include <zlib.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string gzip(std::string const& bytes, int windowBits) {
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

std::string text(Samples const& samples) {
    std::ostringstream numbers;
    for (std::int16_t const value : samples.values) {
        numbers << value << "\n";
    }
    return numbers.str();
}

std::string sizes(Samples const& samples) {
    return std::to_string(samples.size[0]) + " " + std::to_string(samples.size[1]) + " " +
           std::to_string(samples.size[2]);
}

std::string nrrdHeader(Samples const& samples, std::string const& fields) {
    return "NRRD0004\n# a comment\ntype: signed short int\ndimension: 3\nsizes: " + sizes(samples) +
           "\nspace: left-posterior-superior\nspace directions: (1,0,0) (0,2,0) (0,0,3)\n" + fields + "\n";
}

std::string metaHeader(Samples const& samples, std::string const& fields) {
    return "ObjectType = Image\nNDims = 3\nDimSize = " + sizes(samples) +
           "\nElementSpacing = 1 2 3\nElementType = MET_SHORT\n" + fields + "\nElementDataFile = ";
}

void writeMeta(Samples const& samples, fs::path const& path) {
    vtkNew<vtkMetaImageWriter> writer;
    writer->SetInputData(makeImage(samples));
    writer->SetFileName(path.c_str());
    writer->SetCompression(false);
    writer->Write();
}

void writeDetachedMeta(Samples const& samples, fs::path const& path) {
    vtkNew<vtkMetaImageWriter> writer;
    writer->SetInputData(makeImage(samples));
    writer->SetFileName(path.c_str());
    std::string const data = fs::path(path).replace_extension(".zraw").string();
    writer->SetRAWFileName(data.c_str());
    writer->SetCompression(true);
    writer->Write();
}

template <typename Configure> void writeVti(Samples const& samples, fs::path const& path, Configure&& configure) {
    vtkNew<vtkXMLImageDataWriter> writer;
    writer->SetInputData(makeImage(samples));
    writer->SetFileName(path.c_str());
    configure(*writer);
    writer->Write();
}

std::string sliceName(fs::path const& folder, int z, char const* extension) {
    // Not padded with zeros: slice 10 follows slice 9.
    return (folder / ("slice" + std::to_string(z) + extension)).string();
}

void writeTiffFolder(Samples const& samples, fs::path const& path) {
    fs::create_directory(path);
    for (int z = 0; z < samples.size[2]; ++z) {
        writeTiffPages(samples, sliceName(path, z, ".tif"), "w", COMPRESSION_NONE, z, z);
    }
}

void writePngFolder(Samples const& samples, fs::path const& path) {
    fs::create_directory(path);
    for (int z = 0; z < samples.size[2]; ++z) {
        vtkNew<vtkImageData> slice;
        slice->SetDimensions(samples.size[0], samples.size[1], 1);
        slice->AllocateScalars(VTK_UNSIGNED_SHORT, 1);
        for (int y = 0; y < samples.size[1]; ++y) {
            for (int x = 0; x < samples.size[0]; ++x) {
                // VTK writes its last row at the top.
                *static_cast<std::uint16_t*>(slice->GetScalarPointer(x, samples.size[1] - 1 - y, 0)) =
                    static_cast<std::uint16_t>(samples.at(x, y, z));
            }
        }
        vtkNew<vtkPNGWriter> writer;
        writer->SetInputData(slice);
        writer->SetFileName(sliceName(path, z, ".png").c_str());
        writer->Write();
    }
}

FileFormat vti(std::string const& name, void (*configure)(vtkXMLImageDataWriter&)) {
    return {name, "a.vti", [configure](Samples const& s, fs::path const& path) { writeVti(s, path, configure); }, true};
}

FileFormat tiffStack(std::string const& name, char const* mode, int compression) {
    return {name, "a.tif",
            [mode, compression](Samples const& s, fs::path const& path) {
                writeTiffPages(s, path, mode, compression, 0, s.size[2] - 1);
            },
            false};
}

FileFormat attached(std::string const& name, std::string const& fileName,
                    std::function<std::string(Samples const&)> const& content) {
    return {name, fileName, [content](Samples const& s, fs::path const& path) { writeBytes(path, content(s)); }, true};
}

constexpr int kGzip = MAX_WBITS + 16;

} // namespace

Samples makeSamples(int sizeX, int sizeY, int sizeZ) {
    Samples samples{{sizeX, sizeY, sizeZ}, {}};
    std::uint32_t state = 1;
    for (int i = 0; i < sizeX * sizeY * sizeZ; ++i) {
        state = state * 1664525U + 1013904223U;
        samples.values.push_back(static_cast<std::int16_t>((state >> 16U) % 4001));
    }
    return samples;
}

vtkSmartPointer<vtkImageData> makeImage(Samples const& samples) {
    auto image = vtkSmartPointer<vtkImageData>::New();
    image->SetDimensions(samples.size[0], samples.size[1], samples.size[2]);
    image->SetSpacing(1, 2, 3);
    image->AllocateScalars(VTK_SHORT, 1);
    std::copy(samples.values.begin(), samples.values.end(), static_cast<std::int16_t*>(image->GetScalarPointer()));
    return image;
}

void writeBytes(fs::path const& path, std::string const& bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string readBytes(fs::path const& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

std::string rawBytes(Samples const& samples, bool isBigEndian) {
    std::string bytes;
    for (std::int16_t const value : samples.values) {
        auto const low = static_cast<char>(value & 0xFF);
        auto const high = static_cast<char>(value >> 8);
        bytes += isBigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

std::vector<FileFormat> const& fileFormats() {
    static std::vector<FileFormat> const kFormats{
        {"Nifti", "a.nii", writeNifti, true},
        {"NiftiGzip", "a.nii.gz", writeNifti, true},
        {"NiftiBigEndian", "a.nii", writeBigEndianNifti, true},
        {"Meta", "a.mha", writeMeta, true},
        {"MetaDetachedCompressed", "a.mhd", writeDetachedMeta, true},
        attached("MetaBigEndian", "a.mha",
                 [](Samples const& s) {
                     return metaHeader(s, "BinaryDataByteOrderMSB = True") + "LOCAL\n" + rawBytes(s, true);
                 }),
        attached(
            "NrrdRaw", "a.nrrd",
            [](Samples const& s) { return nrrdHeader(s, "encoding: raw\nendian: little\n") + rawBytes(s, false); }),
        attached("NrrdBigEndian", "a.nrrd",
                 [](Samples const& s) { return nrrdHeader(s, "encoding: raw\nendian: big\n") + rawBytes(s, true); }),
        attached("NrrdGzip", "a.nrrd",
                 [](Samples const& s) {
                     return nrrdHeader(s, "encoding: gzip\nendian: little\n") + gzip(rawBytes(s, false), kGzip);
                 }),
        attached("NrrdText", "a.nrrd", [](Samples const& s) { return nrrdHeader(s, "encoding: ascii\n") + text(s); }),
        {"NrrdDetached", "a.nhdr",
         [](Samples const& s, fs::path const& path) {
             writeBytes(path, nrrdHeader(s, "encoding: raw\nendian: little\ndata file: a.data\n"));
             writeBytes(path.parent_path() / "a.data", rawBytes(s, false));
         },
         true},
        tiffStack("Tiff", "w", COMPRESSION_NONE),
        tiffStack("TiffBigEndian", "wb", COMPRESSION_NONE),
        tiffStack("TiffDeflate", "w", COMPRESSION_ADOBE_DEFLATE),
        tiffStack("TiffLzw", "w", COMPRESSION_LZW),
        {"TiffTiledBig", "a.tif", writeTiledTiff, false},
        {"TiffFolder", "slices", writeTiffFolder, false},
        {"PngFolder", "slices", writePngFolder, false},
        {"DicomFolder", "slices", writeDicomFolder, true},
        vti("VtiAppended",
            [](vtkXMLImageDataWriter& w) {
                w.SetDataModeToAppended();
                w.EncodeAppendedDataOff();
                w.SetCompressorTypeToNone();
            }),
        vti("VtiAppendedCompressed",
            [](vtkXMLImageDataWriter& w) {
                w.SetDataModeToAppended();
                w.EncodeAppendedDataOn();
                w.SetCompressorTypeToZLib();
            }),
        vti("VtiBinaryBigEndian",
            [](vtkXMLImageDataWriter& w) {
                w.SetDataModeToBinary();
                w.SetByteOrderToBigEndian();
            }),
        vti("VtiText", [](vtkXMLImageDataWriter& w) { w.SetDataModeToAscii(); }),
    };
    return kFormats;
}
