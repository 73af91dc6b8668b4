// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "MghBytes.h"

#include "support/files/fileContent.h"

#include <cstdint>

namespace {

template <typename T> std::string big(T value) { return numberBytes(value, /*isBigEndian=*/true); }

double rasSign(std::size_t i) { return i < 2 ? -1 : 1; }

} // namespace

std::string mghHeader(Phantom const& phantom, MghOptions const& options) {
    std::string bytes = big<std::int32_t>(options.version);
    for (int const side : phantom.size) {
        bytes += big<std::int32_t>(side);
    }
    bytes += big<std::int32_t>(options.frames) + big<std::int32_t>(options.type) + big<std::int32_t>(0) +
             big<std::int16_t>(static_cast<std::int16_t>(options.goodRas));
    for (double const distance : phantom.spacing) {
        bytes += big(static_cast<float>(distance));
    }
    for (auto const& axis : phantom.axes) {
        for (std::size_t i = 0; i < 3; ++i) {
            bytes += big(static_cast<float>(rasSign(i) * axis[i]));
        }
    }
    // The place of the middle, where half the sides are counted from the first voxel's centre.
    for (std::size_t i = 0; i < 3; ++i) {
        double centre = phantom.origin[i];
        for (std::size_t axis = 0; axis < 3; ++axis) {
            centre += phantom.size[axis] / 2.0 * phantom.spacing[axis] * phantom.axes[axis][i];
        }
        bytes += big(static_cast<float>(rasSign(i) * centre));
    }
    bytes.resize(284, '\0');
    return bytes;
}
