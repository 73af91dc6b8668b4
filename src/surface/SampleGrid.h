// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLtVec3.h>
#include <tamo/objects/GLObjectList.h>

#include <cstddef>
#include <cstdint>

namespace tamo {

/// The samples of a box of a volume, numbered 0 to `count` - 1 along each axis.
struct SampleGrid {
    /// Returns the address of sample (x, y, z).
    [[nodiscard]] unsigned char const* at(std::int64_t x, std::int64_t y, std::int64_t z) const {
        return first + (x * stride.x + y * stride.y + z * stride.z);
    }

    /// Sample (0, 0, 0).
    unsigned char const* first;
    /// Address distance between neighbouring samples, in voxels.
    GLtVec3<std::ptrdiff_t> stride;
    GLtVec3<std::int64_t> count;
};

/// Returns whether the arguments describe a scan; `wrapGlobal` and `getGLDataInfo` refuse the same ones.
inline bool isScannable(unsigned char const* data, unsigned int step, GLtVec3<int> const& extent,
                        GLObjectList const& objects) {
    constexpr unsigned int kConfigurations = 256;
    auto const fits = [step](int side) { return step <= static_cast<unsigned int>(side); };
    return objects.size() == kConfigurations && step != 0 && fits(extent.x) && fits(extent.y) && fits(extent.z) &&
           data != nullptr;
}

inline SampleGrid makeSampleGrid(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                                 GLtVec3<int> const& origin, GLtVec3<int> const& extent) {
    auto const offset = [](int position, int increment) { return std::ptrdiff_t{position} * increment; };
    auto const stride = [step](int increment) { return static_cast<std::ptrdiff_t>(step) * increment; };
    auto const count = [step](int side) { return static_cast<std::int64_t>(static_cast<unsigned int>(side) / step); };
    return {data + (offset(origin.x, increments.x) + offset(origin.y, increments.y) + offset(origin.z, increments.z)),
            {stride(increments.x), stride(increments.y), stride(increments.z)},
            {count(extent.x), count(extent.y), count(extent.z)}};
}

} // namespace tamo
