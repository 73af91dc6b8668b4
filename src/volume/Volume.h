// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Box.h"
#include "VolumeHeader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace tamo::volume {

/// Holds the voxels of a box of a file, as the file stores them but in the machine's byte order.
///
/// Copies share the voxels, which live as long as any of them and which nobody writes any more: threads may share them,
/// and another language may keep them, as an array with these increments that owns a copy of `memory`. Values are
/// slope * voxel + intercept, as the header says.
struct Volume {
    /// Describes the whole file; its size is not that of the box.
    VolumeHeader header;
    /// The part of the file that the voxels are of.
    Box box;
    /// The box's first voxel.
    unsigned char const* voxels = nullptr;
    /// Distances in bytes between neighbours along x, y and z. Without gaps as files give them; a volume made of other
    /// memory may have any, of either sign.
    std::array<std::ptrdiff_t, 3> increments{};
    /// Keeps the voxels, however they were allocated; empty where they outlive the volume in any case.
    std::shared_ptr<void const> memory;

    /// Returns the sides of the box.
    [[nodiscard]] Size3 size() const { return box.sides(); }
    /// Returns the number of bytes that the voxels of the box take.
    [[nodiscard]] std::uint64_t bytes() const {
        return static_cast<std::uint64_t>(voxelCount(size())) * static_cast<std::uint64_t>(bytesOf(header.type));
    }
    /// Returns the address of the first voxel of a row, counted within the box.
    [[nodiscard]] unsigned char const* row(std::int64_t y, std::int64_t z) const {
        return voxels + y * increments[1] + z * increments[2];
    }
    /// Returns where the box's first voxel lies in space.
    [[nodiscard]] Vector3 origin() const {
        return header.geometry.position(
            {static_cast<double>(box.first[0]), static_cast<double>(box.first[1]), static_cast<double>(box.first[2])});
    }
};

} // namespace tamo::volume
