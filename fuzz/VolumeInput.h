// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "tests/support/files/TemporaryFolder.h"
#include "tests/support/files/fileContent.h"

#include "volume/VolumeSource.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tamo::volume {

/// The files of a volume, as they are called, and which of them, or the folder, is opened.
struct InputNames {
    std::string opened;
    std::vector<std::string> files;
};

/// Every way in which a format is spread over files.
inline std::vector<InputNames> const& inputNames() {
    static std::vector<InputNames> const kNames{
        {"a.nii", {"a.nii"}},
        {"a.nii.gz", {"a.nii.gz"}},
        {"a.hdr", {"a.hdr", "a.img"}},
        {"a.img.gz", {"a.hdr.gz", "a.img.gz"}},
        {"a.mha", {"a.mha"}},
        {"a.mhd", {"a.mhd", "a.raw"}},
        {"a.mhd", {"a.mhd", "a.zraw"}},
        {"a.mhd", {"a.mhd", "s000.raw", "s001.raw", "s002.raw"}},
        {"a.nrrd", {"a.nrrd"}},
        {"a.nhdr", {"a.nhdr", "a.raw"}},
        {"a.nhdr", {"a.nhdr", "s000.raw", "s001.raw", "s002.raw"}},
        {"a.seg.nrrd", {"a.seg.nrrd"}},
        {"a.mgh", {"a.mgh"}},
        {"a.mgz", {"a.mgz"}},
        {"a.npy", {"a.npy"}},
        {"a.vtk", {"a.vtk"}},
        {"a.tif", {"a.tif"}},
        {"a.ome.tif", {"a.ome.tif"}},
        {"a.dcm", {"a.dcm"}},
        {"a", {"a"}},
        {"DICOMDIR", {"DICOMDIR", "I0", "I1", "I2"}},
        {".", {"1.bmp", "2.bmp"}},
        {".", {"1.png", "2.png"}},
        {".", {"1.jpg", "2.jpg"}},
        {".", {"1.tif", "2.tif"}},
        {".", {"1.dcm", "2.dcm", "3.dcm", "4.dcm"}},
        {".", {"1.png", "2.tif", "3"}},
        {"a.raw", {"a.raw"}},
        {"a.png", {"a.png"}},
    };
    return kNames;
}

/// Stands between the files of an input. One that it does not stand in is the content of all files; else those that
/// nothing is left for do not exist.
inline constexpr std::string_view kNextFile = "\n--next file--\n";

/// Writes the files of an input into a folder, and returns what to open. The first byte is the place in `inputNames`,
/// the second chooses frame, channel, series and segment, or the type of bare voxels; the files' contents follow.
inline VolumeSource writeInput(std::string_view input, TemporaryFolder const& folder) {
    auto const byte = [&input](std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(input[at]));
    };
    auto const& [opened, files] = inputNames()[byte(0) % inputNames().size()];
    std::size_t const choice = byte(1);
    input.remove_prefix(2);
    bool const isForAll = input.find(kNextFile) == std::string_view::npos;
    for (std::size_t i = 0; i < files.size() && !input.empty(); ++i) {
        bool const takesAll = isForAll || i + 1 == files.size();
        std::string_view const content = input.substr(0, takesAll ? input.size() : input.find(kNextFile));
        writeFile(folder / files[i], std::string(content));
        input.remove_prefix(isForAll ? 0 : std::min(content.size() + kNextFile.size(), input.size()));
    }
    VolumeSource source;
    source.path = folder / opened;
    if (opened == "a.raw") {
        source.raw = RawLayout{{4, 3, 2}, kScalarTypes[choice % 10].type, choice / 10 % 2 == 1, choice / 20};
        return source;
    }
    choice % 4 > 0 ? void(source.frame = choice % 4 - 1) : void();
    choice / 4 % 4 > 0 ? void(source.channel = choice / 4 % 4 - 1) : void();
    source.series = std::vector<std::string>{"", "1", "3", "1.2.3.4"}[choice / 16 % 4];
    source.segment = std::vector<std::string>{"", "bone", "skin", "b"}[choice / 64];
    return source;
}

} // namespace tamo::volume
