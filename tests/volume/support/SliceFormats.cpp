// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "PictureFiles.h"
#include "TestFormats.h"
#include "TiffFiles.h"

namespace {

namespace fs = std::filesystem;

void writeTiff(fs::path const& path, TestPicture const& picture) {
    TiffOptions options;
    options.sampleFormat = SAMPLEFORMAT_INT;
    TiffWriter(path, "w").addPage(picture, options);
}

using WriteSlice = void (*)(fs::path const&, TestPicture const&);

// Slices whose numbers have no leading zeros: their names sort as people count only.
TestFormat makeFormat(std::string const& name, std::string const& ending, int bits, WriteSlice writeSlice) {
    TestFormat format;
    format.name = name;
    format.fileName = "slices";
    format.write = [ending, bits, writeSlice](Phantom const& phantom, fs::path const& folder) {
        fs::create_directory(folder / "slices");
        for (int z = 0; z < phantom.size[2]; ++z) {
            writeSlice(folder / "slices" / ("slice" + std::to_string(z + 1) + ending), sliceOf(phantom, z, bits));
        }
    };
    format.divisor = bits == 8 ? 16 : 1;
    format.hasSpacing = false;
    format.hasOrigin = false;
    format.hasAxes = false;
    return format;
}

} // namespace

std::vector<TestFormat> sliceFormats() {
    auto jpeg = makeFormat("JpegSlices", ".jpg", 8, [](fs::path const& p, TestPicture const& s) { writeJpeg(p, s); });
    auto progressive = makeFormat("JpegSlicesProgressive", ".jpeg", 8, [](fs::path const& p, TestPicture const& s) {
        writeJpeg(p, s, {/*quality=*/100, /*isProgressive=*/true});
    });
    jpeg.tolerance = 3;
    progressive.tolerance = 3;
    return {makeFormat("TiffSlices", ".tif", 16, writeTiff),
            makeFormat("PngSlices", ".png", 16, [](fs::path const& p, TestPicture const& s) { writePng(p, s); }),
            makeFormat("PngSlicesInterlaced", ".png", 8,
                       [](fs::path const& p, TestPicture const& s) { writePng(p, s, {/*isInterlaced=*/true}); }),
            makeFormat("BmpSlices", ".bmp", 8, [](fs::path const& p, TestPicture const& s) { writeBmp(p, s); }),
            jpeg,
            progressive};
}
