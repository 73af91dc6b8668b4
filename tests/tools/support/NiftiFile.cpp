// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeFiles.h"

#include <vtkNIFTIImageWriter.h>
#include <vtkNew.h>

#include <algorithm>

namespace fs = std::filesystem;

void writeNifti(Samples const& samples, fs::path const& path) {
    vtkNew<vtkNIFTIImageWriter> writer;
    writer->SetInputData(makeImage(samples));
    writer->SetFileName(path.c_str());
    writer->Write();
}

void writeBigEndianNifti(Samples const& samples, fs::path const& path) {
    writeNifti(samples, path);
    // Turns the header of a little-endian file and its voxels into their big-endian form.
    std::string bytes = readBytes(path);
    auto const reverse = [&bytes](std::size_t at, std::size_t width, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            std::reverse(bytes.data() + at + i * width, bytes.data() + at + (i + 1) * width);
        }
    };
    reverse(0, 4, 1);
    reverse(32, 4, 1);
    reverse(36, 2, 1);
    reverse(40, 2, 8);
    reverse(56, 4, 3);
    reverse(68, 2, 4);
    reverse(76, 4, 11);
    reverse(120, 2, 1);
    reverse(124, 4, 4);
    reverse(140, 4, 2);
    reverse(252, 2, 2);
    reverse(256, 4, 18);
    constexpr std::size_t kHeader = 352;
    writeBytes(path, bytes.substr(0, kHeader) + rawBytes(samples, /*isBigEndian=*/true));
}
