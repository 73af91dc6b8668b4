// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "volume/Volume.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// Returns the library's name of a C++ type.
template <typename T> constexpr tamo::volume::ScalarType scalarTypeOf() {
    for (auto const& info : tamo::volume::kScalarTypes) {
        bool const isSame = tamo::volume::visitScalarType(
            info.type, [](auto const* null) { return std::is_same_v<decltype(null), T const*>; });
        if (isSame) {
            return info.type;
        }
    }
    return tamo::volume::ScalarType::UInt8;
}

/// Makes a volume of the values that `value` gives for x, y and z, in a memory of its own.
template <typename T>
tamo::volume::Volume makeVolume(tamo::volume::Size3 const& size,
                                std::function<T(std::int64_t, std::int64_t, std::int64_t)> const& value) {
    auto voxels = std::make_shared<std::vector<T>>();
    for (std::int64_t z = 0; z < size[2]; ++z) {
        for (std::int64_t y = 0; y < size[1]; ++y) {
            for (std::int64_t x = 0; x < size[0]; ++x) {
                voxels->push_back(value(x, y, z));
            }
        }
    }
    tamo::volume::Volume volume;
    volume.header.type = scalarTypeOf<T>();
    volume.header.size = size;
    volume.box = tamo::volume::wholeOf(size);
    auto const step = static_cast<std::ptrdiff_t>(sizeof(T));
    volume.increments = {step, step * size[0], step * size[0] * size[1]};
    volume.voxels = reinterpret_cast<unsigned char const*>(voxels->data());
    volume.memory = voxels;
    return volume;
}
