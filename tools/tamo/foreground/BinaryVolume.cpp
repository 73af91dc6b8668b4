// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "BinaryVolume.h"

#include "volume/statistics/forEachRow.h"

#include <cstring>

namespace tamo::tool {

GLtVec3<int> BinaryVolume::extent() const {
    volume::Size3 const size = box.sides();
    return {static_cast<int>(size[0]), static_cast<int>(size[1]), static_cast<int>(size[2])};
}

GLtVec3<int> BinaryVolume::increments() const {
    volume::Size3 const size = box.sides();
    return {1, static_cast<int>(size[0]), static_cast<int>(size[0] * size[1])};
}

void visitRowEnds(BinaryVolume const& binary, std::function<void(Vector3 const&)> const& visit) {
    volume::Size3 const size = binary.box.sides();
    auto const rowVoxels = static_cast<std::size_t>(size[0]);
    unsigned char const* row = binary.voxels.data();
    for (std::int64_t z = 0; z < size[2]; ++z) {
        for (std::int64_t y = 0; y < size[1]; ++y, row += rowVoxels) {
            auto const* const first = static_cast<unsigned char const*>(std::memchr(row, 1, rowVoxels));
            if (first == nullptr) {
                continue;
            }
            auto const* const last = static_cast<unsigned char const*>(memrchr(row, 1, rowVoxels));
            for (auto const* const end : {first, last}) {
                visit({static_cast<double>(binary.box.first[0] + (end - row)),
                       static_cast<double>(binary.box.first[1] + y), static_cast<double>(binary.box.first[2] + z)});
            }
        }
    }
}

BinaryVolume makeBinaryVolume(volume::Volume const& source, Foreground const& foreground,
                              volume::Progress const& progress) {
    BinaryVolume binary;
    binary.box = source.box;
    binary.voxels.resize(static_cast<std::size_t>(volume::voxelCount(source.size())));
    auto const width = static_cast<std::size_t>(source.size()[0]);
    unsigned char* target = binary.voxels.data();
    double const slope = source.header.slope;
    double const intercept = source.header.intercept;
    visitStoredType(source, [&](auto type) {
        volume::forEachRow<decltype(type)>(
            source,
            [&](auto const* row, std::int64_t, std::int64_t) {
                for (std::size_t x = 0; x < width; ++x) {
                    bool const isForeground = foreground.contains(slope * static_cast<double>(row[x]) + intercept);
                    *target++ = static_cast<unsigned char>(isForeground);
                    binary.foreground += static_cast<std::uint64_t>(isForeground);
                }
            },
            progress);
    });
    return binary;
}

} // namespace tamo::tool
