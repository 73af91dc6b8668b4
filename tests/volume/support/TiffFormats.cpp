// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TestFormats.h"
#include "TiffFiles.h"
#include "support/files/fileContent.h"

namespace {

namespace fs = std::filesystem;

// Signed numbers, as the phantom's are; the description is that of the first page only.
void writeStack(Phantom const& phantom, fs::path const& path, char const* mode, TiffOptions options) {
    TiffWriter writer(path, mode);
    options.sampleFormat = SAMPLEFORMAT_INT;
    for (int z = 0; z < phantom.size[2]; ++z) {
        writer.addPage(sliceOf(phantom, z, 16), options);
        options.description.clear();
    }
}

TestFormat makeFormat(std::string const& name, char const* mode, TiffOptions const& options) {
    TestFormat format;
    format.name = name;
    format.fileName = "a.tif";
    format.write = [mode, options](Phantom const& phantom, fs::path const& folder) {
        writeStack(phantom, folder / "a.tif", mode, options);
    };
    format.hasSpacing = false;
    format.hasOrigin = false;
    format.hasAxes = false;
    return format;
}

// ImageJ's description of the phantom and its spacing of 1, 2 and 3 mm.
TiffOptions describeAsImageJ(Phantom const& phantom) {
    TiffOptions options;
    std::string const slices = std::to_string(phantom.size[2]);
    options.description =
        "ImageJ=1.53t\nimages=" + slices + "\nslices=" + slices + "\nunit=micron\nspacing=3000.0\nloop=false\n";
    options.resolutionX = 0.001F;
    options.resolutionY = 0.0005F;
    return options;
}

TiffOptions describeAsOme(Phantom const& phantom) {
    TiffOptions options;
    options.description = R"(<?xml version="1.0" encoding="UTF-8"?><OME xmlns="http://www.openmicroscopy.org">)"
                          R"(<Image ID="Image:0"><Pixels DimensionOrder="XYZCT" Type="int16" SizeX=")" +
                          std::to_string(phantom.size[0]) + "\" SizeY=\"" + std::to_string(phantom.size[1]) +
                          "\" SizeZ=\"" + std::to_string(phantom.size[2]) +
                          R"(" SizeC="1" SizeT="1" PhysicalSizeX="1000.0" PhysicalSizeY="2" PhysicalSizeYUnit="mm" )"
                          R"(PhysicalSizeZ="0.3" PhysicalSizeZUnit="cm"><TiffData/></Pixels></Image></OME>)";
    return options;
}

using Describe = TiffOptions (*)(Phantom const&);

TestFormat makeDescribed(std::string const& name, Describe describe) {
    TestFormat format = makeFormat(name, "w", {});
    format.hasSpacing = true;
    format.write = [describe](Phantom const& phantom, fs::path const& folder) {
        writeStack(phantom, folder / "a.tif", "w", describe(phantom));
    };
    return format;
}

TestFormat makePageless(std::string const& name, bool isBigEndian) {
    TestFormat format = makeDescribed(name, describeAsImageJ);
    format.write = [isBigEndian](Phantom const& phantom, fs::path const& folder) {
        TestPicture all{phantom.size[0], phantom.size[1], 16, 1, voxelBytes(phantom, isBigEndian)};
        writeFile(folder / "a.tif", pageWithOpenEnd(all, describeAsImageJ(phantom), isBigEndian));
    };
    return format;
}

} // namespace

std::vector<TestFormat> tiffFormats() {
    TiffOptions plain;
    TiffOptions deflate;
    deflate.compression = COMPRESSION_ADOBE_DEFLATE;
    TiffOptions lzw;
    lzw.compression = COMPRESSION_LZW;
    TiffOptions packBits;
    packBits.compression = COMPRESSION_PACKBITS;
    TiffOptions tiled;
    tiled.isTiled = true;
    TiffOptions tiledDeflate = deflate;
    tiledDeflate.isTiled = true;
    return {makeFormat("Tiff", "wl", plain),
            makeFormat("TiffBigEndian", "wb", plain),
            makeFormat("TiffDeflate", "w", deflate),
            makeFormat("TiffLzw", "w", lzw),
            makeFormat("TiffPackBits", "w", packBits),
            makeFormat("TiffTiled", "w", tiled),
            makeFormat("TiffTiledBig", "w8", tiledDeflate),
            makeDescribed("TiffImageJ", describeAsImageJ),
            makePageless("TiffImageJPageless", false),
            makePageless("TiffImageJPagelessBigEndian", true),
            makeDescribed("TiffOme", describeAsOme)};
}
