// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Phantom.h"

#include <cmath>

namespace {

// An F as a reader of a slice sees it: x to the right, y downwards.
constexpr std::array<char const*, 7> kLetter{"#####", "#....", "#....", "###..", "#....", "#....", "#...."};

void raiseLetter(Phantom& phantom) {
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 5; ++x) {
            auto const at =
                static_cast<std::size_t>(((phantom.size[2] - 1) * phantom.size[1] + y + 1) * phantom.size[0] + x + 1);
            if (kLetter[static_cast<std::size_t>(y)][x] == '#') {
                phantom.values[at] = static_cast<std::int16_t>(phantom.values[at] + 3000);
            }
        }
    }
}

} // namespace

Phantom makePhantom(int sizeX, int sizeY, int sizeZ) {
    Phantom phantom;
    phantom.size = {sizeX, sizeY, sizeZ};
    std::uint32_t state = 1;
    for (int i = 0; i < sizeX * sizeY * sizeZ; ++i) {
        state = state * 1664525U + 1013904223U;
        phantom.values.push_back(static_cast<std::int16_t>((state >> 16U) % 1001));
    }
    if (sizeX >= 7 && sizeY >= 9 && sizeZ >= 2) {
        raiseLetter(phantom);
    }
    // A turn by 0.3 about z, then by 0.2 about x.
    double const c = std::cos(0.3);
    double const s = std::sin(0.3);
    double const d = std::cos(0.2);
    double const t = std::sin(0.2);
    phantom.axes = {{{c, s * d, s * t}, {-s, c * d, c * t}, {0, -t, d}}};
    return phantom;
}

std::vector<unsigned char> voxelBytes(Phantom const& phantom, bool isBigEndian) {
    std::vector<unsigned char> bytes;
    bytes.reserve(2 * phantom.values.size());
    for (std::int16_t const value : phantom.values) {
        auto const low = static_cast<unsigned char>(value & 0xFF);
        auto const high = static_cast<unsigned char>(value >> 8);
        bytes.push_back(isBigEndian ? high : low);
        bytes.push_back(isBigEndian ? low : high);
    }
    return bytes;
}
