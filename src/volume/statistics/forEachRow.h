// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "../Volume.h"

#include <cstdint>
#include <cstring>
#include <type_traits>
#include <vector>

namespace tamo::volume {

/// Calls `visit(row, y, z)` for every row of a volume in turn, `row` pointing to its stored numbers, which have to be
/// of the type T, one behind another: rows whose voxels lie apart are gathered first. Reports to `progress` once per
/// slice.
template <typename T, typename Visit> void forEachRow(Volume const& volume, Visit&& visit, Progress const& progress) {
    Size3 const size = volume.size();
    auto const isAligned = [](std::ptrdiff_t bytes) { return bytes % static_cast<std::ptrdiff_t>(alignof(T)) == 0; };
    bool const isDense = volume.increments[0] == static_cast<std::ptrdiff_t>(sizeof(T)) &&
                         isAligned(static_cast<std::ptrdiff_t>(reinterpret_cast<std::uintptr_t>(volume.voxels))) &&
                         isAligned(volume.increments[1]) && isAligned(volume.increments[2]);
    std::vector<T> gathered(isDense ? 0 : static_cast<std::size_t>(size[0]));
    for (std::int64_t z = 0; z < size[2]; ++z) {
        for (std::int64_t y = 0; y < size[1]; ++y) {
            unsigned char const* const row = volume.row(y, z);
            for (std::size_t x = 0; x < gathered.size(); ++x) {
                std::memcpy(&gathered[x], row + static_cast<std::ptrdiff_t>(x) * volume.increments[0], sizeof(T));
            }
            visit(isDense ? reinterpret_cast<T const*>(row) : static_cast<T const*>(gathered.data()), y, z);
        }
        report(progress, static_cast<double>(z + 1) / static_cast<double>(size[2]));
    }
}

/// Calls `visit` with a value of the type of the volume's stored numbers; returns what it returns.
template <typename Visit> decltype(auto) visitStoredType(Volume const& volume, Visit&& visit) {
    return visitScalarType(volume.header.type, [&](auto const* null) {
        return visit(std::remove_cv_t<std::remove_pointer_t<decltype(null)>>{});
    });
}

} // namespace tamo::volume
