// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <vtkNIFTIImageWriter.h>
#include <vtkNew.h>
#include <vtkPNGWriter.h>
#include <vtkXMLImageDataWriter.h>

#include <tiffio.h>

#include <cstring>

namespace {

namespace fs = std::filesystem;

constexpr int kSide = 4;

vtkSmartPointer<vtkImageData> makeColours(int slices, int components) {
    auto image = vtkSmartPointer<vtkImageData>::New();
    image->SetDimensions(kSide, kSide, slices);
    image->AllocateScalars(VTK_UNSIGNED_CHAR, components);
    constexpr int kGrey = 100;
    std::memset(image->GetScalarPointer(), kGrey, static_cast<std::size_t>(kSide * kSide * slices * components));
    return image;
}

template <typename Writer> void write(vtkImageData* image, fs::path const& path) {
    vtkNew<Writer> writer;
    writer->SetInputData(image);
    writer->SetFileName(path.c_str());
    writer->Write();
}

template <int Components> void writePngFolder(fs::path const& path) {
    fs::create_directory(path);
    for (int z = 0; z < kSide; ++z) {
        write<vtkPNGWriter>(makeColours(1, Components), path / (std::to_string(z) + ".png"));
    }
}

void writeTiffPages(fs::path const& path, std::uint16_t photometric, int pages) {
    bool const isPalette = photometric == PHOTOMETRIC_PALETTE;
    TIFF* const file = TIFFOpen(path.c_str(), "w");
    for (int z = 0; z < pages; ++z) {
        TIFFSetField(file, TIFFTAG_IMAGEWIDTH, kSide);
        TIFFSetField(file, TIFFTAG_IMAGELENGTH, kSide);
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
        TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, isPalette ? 1 : 3);
        TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, photometric);
        std::array<std::uint16_t, 256> ramp{};
        if (isPalette) {
            TIFFSetField(file, TIFFTAG_COLORMAP, ramp.data(), ramp.data(), ramp.data());
        }
        std::array<unsigned char, 3 * kSide> row{};
        for (std::uint32_t y = 0; y < kSide; ++y) {
            TIFFWriteScanline(file, row.data(), y, 0);
        }
        TIFFWriteDirectory(file);
    }
    TIFFClose(file);
}

template <std::uint16_t Photometric> void writeTiff(fs::path const& path) { writeTiffPages(path, Photometric, kSide); }

template <std::uint16_t Photometric> void writeTiffFolder(fs::path const& path) {
    fs::create_directory(path);
    for (int z = 0; z < kSide; ++z) {
        writeTiffPages(path / (std::to_string(z) + ".tif"), Photometric, 1);
    }
}

struct ColourFormat {
    char const* name;
    char const* fileName;
    void (*write)(fs::path const&);
};

std::ostream& operator<<(std::ostream& out, ColourFormat const& format) { return out << format.name; }

class ColouredVolume : public testing::TestWithParam<ColourFormat> {};

TEST_P(ColouredVolume, IsRefusedInOneLineThatSaysWhy) {
    TemporaryFolder const folder;
    fs::path const path = folder / GetParam().fileName;
    GetParam().write(path);
    ASSERT_TRUE(fs::exists(path));
    fs::create_directory(folder / "out");
    for (std::vector<std::string> const& arguments :
         {std::vector<std::string>{"info", path.string()},
          {"render", path.string(), "-o", (folder / "out" / "a.png").string()}}) {
        ToolRun const run = runTool(arguments);
        EXPECT_TRUE(isInputRefusal(run, path.string())) << run.status << " " << run.error;
        EXPECT_NE(run.error.find("expected a volume of one scalar per voxel"), std::string::npos) << run.error;
        EXPECT_NE(run.error.find("colour image"), std::string::npos) << run.error;
        EXPECT_EQ(run.output, "");
        EXPECT_TRUE(fs::is_empty(folder / "out"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, ColouredVolume,
    testing::Values(
        ColourFormat{"Vti", "a.vti", [](fs::path const& p) { write<vtkXMLImageDataWriter>(makeColours(kSide, 3), p); }},
        ColourFormat{"Nifti", "a.nii", [](fs::path const& p) { write<vtkNIFTIImageWriter>(makeColours(kSide, 3), p); }},
        ColourFormat{"NiftiWithAlpha", "a.nii.gz",
                     [](fs::path const& p) { write<vtkNIFTIImageWriter>(makeColours(kSide, 4), p); }},
        ColourFormat{"PngFolder", "slices", writePngFolder<3>},
        ColourFormat{"PngFolderGreyWithAlpha", "slices", writePngFolder<2>},
        ColourFormat{"Tiff", "a.tif", writeTiff<PHOTOMETRIC_RGB>},
        ColourFormat{"TiffPalette", "a.tif", writeTiff<PHOTOMETRIC_PALETTE>},
        ColourFormat{"TiffFolder", "slices", writeTiffFolder<PHOTOMETRIC_RGB>},
        ColourFormat{"TiffFolderPalette", "slices", writeTiffFolder<PHOTOMETRIC_PALETTE>}),
    [](auto const& instance) { return std::string(instance.param.name); });

} // namespace
