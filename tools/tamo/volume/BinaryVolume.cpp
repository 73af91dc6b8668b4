// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "BinaryVolume.h"

#include "ScalarType.h"

#include <cstring>

namespace tamo::tool {

void visitRowEnds(BinaryVolume const& binary, std::function<void(Vector3 const&)> const& visit) {
    auto const rowVoxels = static_cast<std::size_t>(binary.size[0]);
    unsigned char const* row = binary.voxels.data();
    for (int z = 0; z < binary.size[2]; ++z) {
        for (int y = 0; y < binary.size[1]; ++y, row += rowVoxels) {
            auto const* const first = static_cast<unsigned char const*>(std::memchr(row, 1, rowVoxels));
            if (first == nullptr) {
                continue;
            }
            auto const* const last = static_cast<unsigned char const*>(memrchr(row, 1, rowVoxels));
            for (auto const* const end : {first, last}) {
                visit({static_cast<double>(binary.first[0] + (end - row)), static_cast<double>(binary.first[1] + y),
                       static_cast<double>(binary.first[2] + z)});
            }
        }
    }
}

BinaryVolume makeBinaryVolume(Volume const& volume, ValueRange range, Box const& box, Progress& progress) {
    BinaryVolume binary;
    binary.first = box.first;
    binary.size = box.sides();
    Size3 const& size = binary.size;
    binary.voxels.resize(static_cast<std::size_t>(size[0]) * static_cast<std::size_t>(size[1]) *
                         static_cast<std::size_t>(size[2]));

    double const slope = volume.slope;
    double const intercept = volume.intercept;
    visitScalarType(volume.image->GetScalarType(), [&](auto const* null) {
        unsigned char* target = binary.voxels.data();
        for (int z = 0; z < size[2]; ++z) {
            for (int y = 0; y < size[1]; ++y, target += size[0]) {
                auto const* const source =
                    reinterpret_cast<decltype(null)>(rowAddress(*volume.image, box.first[1] + y, box.first[2] + z)) +
                    box.first[0];
                for (int x = 0; x < size[0]; ++x) {
                    double const value = slope * static_cast<double>(source[x]) + intercept;
                    bool const isForeground = value >= range.min && value <= range.max;
                    target[x] = static_cast<unsigned char>(isForeground);
                    binary.foreground += static_cast<std::uint64_t>(isForeground);
                }
            }
            progress.update((z + 1.0) / size[2]);
        }
    });
    return binary;
}

} // namespace tamo::tool
