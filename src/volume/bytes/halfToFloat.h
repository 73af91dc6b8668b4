// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace tamo::volume {

/// Returns the number that 16 bits stand for: a sign, 5 bits of exponent and 10 of fraction (IEEE 754, binary16). Every
/// one of them is a float.
inline float halfToFloat(std::uint16_t half) {
    int const exponent = half >> 10 & 0x1F;
    int const fraction = half & 0x3FF;
    // Of the exponent 15, and of the fraction 10, for it is taken as a whole number.
    constexpr int kBias = 25;
    float value = 0;
    if (exponent == 0x1F) {
        value = fraction == 0 ? std::numeric_limits<float>::infinity() : std::numeric_limits<float>::quiet_NaN();
    } else if (exponent == 0) {
        value = std::ldexp(static_cast<float>(fraction), 1 - kBias);
    } else {
        value = std::ldexp(static_cast<float>(fraction + 0x400), exponent - kBias);
    }
    return (half & 0x8000) != 0 ? -value : value;
}

} // namespace tamo::volume
