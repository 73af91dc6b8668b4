// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "BinaryVolume.h"

#include "ScalarType.h"

namespace tamo {

BinaryVolume makeBinaryVolume(Volume const& volume, ValueRange range, Box const& box, Progress& progress) {
    Size3 const& size = volume.size;
    BinaryVolume binary;
    binary.size = size;
    auto const sliceVoxels = static_cast<std::size_t>(size[0]) * static_cast<std::size_t>(size[1]);
    binary.voxels.resize(sliceVoxels * static_cast<std::size_t>(size[2]));

    double const slope = volume.slope;
    double const intercept = volume.intercept;
    visitScalarType(volume.image->GetScalarType(), [&](auto const* null) {
        for (int z = box.first[2]; z <= box.last[2]; ++z) {
            for (int y = box.first[1]; y <= box.last[1]; ++y) {
                auto const* const source = reinterpret_cast<decltype(null)>(rowAddress(*volume.image, y, z));
                unsigned char* const target = binary.voxels.data() + static_cast<std::size_t>(z) * sliceVoxels +
                                              static_cast<std::size_t>(y) * static_cast<std::size_t>(size[0]);
                for (int x = box.first[0]; x <= box.last[0]; ++x) {
                    double const value = slope * static_cast<double>(source[x]) + intercept;
                    bool const isForeground = value >= range.min && value <= range.max;
                    target[x] = static_cast<unsigned char>(isForeground);
                    binary.foreground += static_cast<std::uint64_t>(isForeground);
                }
            }
            progress.update((z - box.first[2] + 1.0) / (box.last[2] - box.first[2] + 1));
        }
    });
    return binary;
}

} // namespace tamo
