// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// Holds a volume of 16-bit values, x fastest, then y, then z.
struct Samples {
    std::array<int, 3> size{};
    std::vector<std::int16_t> values;

    [[nodiscard]] std::int16_t at(int x, int y, int z) const {
        return values[static_cast<std::size_t>((z * size[1] + y) * size[0] + x)];
    }
};

/// Makes a volume of values from 0 to 4000 that looks different from every side.
Samples makeSamples(int sizeX, int sizeY, int sizeZ);

/// Returns the samples as they stand in a file of bare voxels.
std::string rawBytes(Samples const& samples);

/// Writes a MetaImage file, spacing 1 x 2 x 3.
void writeMetaImage(Samples const& samples, std::filesystem::path const& path);
