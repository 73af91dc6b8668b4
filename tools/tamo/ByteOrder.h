// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cstdint>

namespace tamo {

inline bool isBigEndianMachine() {
    constexpr std::uint16_t kOne = 1;
    return *reinterpret_cast<unsigned char const*>(&kOne) == 0;
}

/// Turns scalars of `scalarBytes` bytes each, stored big- or little-endian, into those of this machine.
inline void toNativeOrder(unsigned char* data, std::uint64_t bytes, int scalarBytes, bool isBigEndian) {
    if (scalarBytes == 1 || isBigEndian == isBigEndianMachine()) {
        return;
    }
    for (unsigned char* scalar = data; scalar < data + bytes; scalar += scalarBytes) {
        std::reverse(scalar, scalar + scalarBytes);
    }
}

} // namespace tamo
