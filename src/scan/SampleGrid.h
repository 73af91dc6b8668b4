// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLtVec3.h>

#include <cstddef>
#include <cstdint>

namespace tamo::scan {

/// The samples of a box of a volume, numbered 0 to `count` - 1 along each axis. Never throws.
struct SampleGrid {
    /// Returns the address of sample (x, y, z).
    [[nodiscard]] unsigned char const* at(std::int64_t x, std::int64_t y, std::int64_t z) const {
        return first + (x * stride.x + y * stride.y + z * stride.z);
    }

    /// Returns the grid with `below` layers of samples more at the lower and `above` at the upper end of each axis. The
    /// volume has to have them.
    ///
    /// A piece of a larger volume is walked so: where the samples next to a box are not background, the cells across
    /// its border need them, and they are then cells between samples like all others.
    [[nodiscard]] SampleGrid grown(GLtVec3<std::int64_t> const& below, GLtVec3<std::int64_t> const& above) const {
        return {at(-below.x, -below.y, -below.z),
                stride,
                {count.x + below.x + above.x, count.y + below.y + above.y, count.z + below.z + above.z}};
    }

    /// Sample (0, 0, 0).
    unsigned char const* first;
    /// Address distance between neighbouring samples, in voxels.
    GLtVec3<std::ptrdiff_t> stride;
    GLtVec3<std::int64_t> count;
};

/// Returns the samples of a box of `extent` voxels, read as unsigned, from voxel `origin` on, `step` voxels apart. The
/// volume's voxel (0, 0, 0) is at `data`; `increments` are its address distances in voxels.
inline SampleGrid makeSampleGrid(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                                 GLtVec3<int> const& origin, GLtVec3<int> const& extent) {
    auto const offset = [](int position, int increment) { return std::ptrdiff_t{position} * increment; };
    auto const stride = [step](int increment) { return static_cast<std::ptrdiff_t>(step) * increment; };
    auto const count = [step](int side) { return static_cast<std::int64_t>(static_cast<unsigned int>(side) / step); };
    return {data + (offset(origin.x, increments.x) + offset(origin.y, increments.y) + offset(origin.z, increments.z)),
            {stride(increments.x), stride(increments.y), stride(increments.z)},
            {count(extent.x), count(extent.y), count(extent.z)}};
}

} // namespace tamo::scan
