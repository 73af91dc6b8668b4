// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/files/TemporaryFolder.h"
#include "tests/support/files/fileContent.h"

#include "volume/Error.h"
#include "volume/openVolume.h"

#include <array>
#include <cstdlib>

using namespace tamo::volume;

// What is written, and what of it is opened: a folder of two slices where the name holds one.
static constexpr std::array<std::array<char const*, 3>, 24> kNames{{
    {"a.nii", "", "a.nii"},         {"a.nii.gz", "", "a.nii.gz"},     {"a.hdr", "a.img", "a.hdr"},
    {"a.mha", "", "a.mha"},         {"a.mhd", "", "a.mhd"},           {"a.nrrd", "", "a.nrrd"},
    {"a.nhdr", "", "a.nhdr"},       {"a.seg.nrrd", "", "a.seg.nrrd"}, {"a.mgh", "", "a.mgh"},
    {"a.mgz", "", "a.mgz"},         {"a.npy", "", "a.npy"},           {"a.vtk", "", "a.vtk"},
    {"a.tif", "", "a.tif"},         {"a.dcm", "", "a.dcm"},           {"1.bmp", "2.bmp", "."},
    {"1.png", "2.png", "."},        {"1.jpg", "2.jpg", "."},          {"1.tif", "2.tif", "."},
    {"1.dcm", "2.dcm", "."},        {"DICOMDIR", "", "DICOMDIR"},     {"a.img", "a.hdr", "a.img"},
    {"a.ome.tif", "", "a.ome.tif"}, {"a.hdr", "", "a.hdr"},           {"a.raw", "a.mhd", "a.mhd"},
}};

// Writes the bytes behind the first one as a volume of the format that the first one names, and stops the program where
// opening or reading it does anything but give voxels or throw an Error of one line, or where a box has other voxels
// than the whole.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* bytes, std::size_t count) {
    if (count < 2) {
        return 0;
    }
    auto const& [first, second, opened] = kNames[bytes[0] % kNames.size()];
    TemporaryFolder const folder;
    std::string const content(reinterpret_cast<char const*>(bytes) + 1, count - 1);
    writeFile(folder / first, content);
    if (*second != '\0') {
        writeFile(folder / second, content);
    }
    try {
        VolumeSource source;
        source.path = folder / opened;
        auto const file = openVolume(source, {});
        Size3 const& size = file->header().size;
        constexpr std::int64_t kMostVoxels = 1 << 24;
        if (voxelCount(size) > kMostVoxels) {
            return 0;
        }
        Volume const whole = file->read(wholeOf(size), {});
        Box const box{{size[0] / 2, size[1] / 3, size[2] / 2}, {size[0] - 1, size[1] / 2, size[2] - 1}};
        Volume const part = file->read(box, {});
        auto const rowBytes = static_cast<std::size_t>(part.increments[1]);
        auto const offset = box.first[0] * part.increments[0];
        for (std::int64_t z = 0; z < part.size()[2]; ++z) {
            for (std::int64_t y = 0; y < part.size()[1]; ++y) {
                unsigned char const* const row = whole.row(box.first[1] + y, box.first[2] + z) + offset;
                std::memcmp(row, part.row(y, z), rowBytes) == 0 ? void() : std::abort();
            }
        }
    } catch (Error const& error) {
        std::string(error.what()).find('\n') == std::string::npos ? void() : std::abort();
    }
    return 0;
}
