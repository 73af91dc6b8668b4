// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeFiles.h"

#include "support/files/fileContent.h"

Samples makeSamples(int sizeX, int sizeY, int sizeZ) {
    Samples samples{{sizeX, sizeY, sizeZ}, {}};
    std::uint32_t state = 1;
    for (int i = 0; i < sizeX * sizeY * sizeZ; ++i) {
        state = state * 1664525U + 1013904223U;
        samples.values.push_back(static_cast<std::int16_t>((state >> 16U) % 4001));
    }
    return samples;
}

std::string rawBytes(Samples const& samples) {
    std::string bytes;
    for (std::int16_t const value : samples.values) {
        bytes += numberBytes(value);
    }
    return bytes;
}

void writeMetaImage(Samples const& samples, std::filesystem::path const& path) {
    writeFile(path, "ObjectType = Image\nNDims = 3\nDimSize = " + std::to_string(samples.size[0]) + " " +
                        std::to_string(samples.size[1]) + " " + std::to_string(samples.size[2]) +
                        "\nElementSpacing = 1 2 3\nElementType = MET_SHORT\nElementDataFile = LOCAL\n" +
                        rawBytes(samples));
}
