// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NpyBytes.h"
#include "TestFormats.h"

#include "support/files/fileContent.h"

#include <algorithm>
#include <cmath>

namespace {

namespace fs = std::filesystem;

std::string shapeOf(Phantom const& phantom) {
    return "(" + std::to_string(phantom.size[2]) + ", " + std::to_string(phantom.size[1]) + ", " +
           std::to_string(phantom.size[0]) + ")";
}

// The bits of the half that is exactly a whole number of up to 2048.
std::uint16_t halfBits(int value) {
    if (value == 0) {
        return 0;
    }
    int const exponent = std::ilogb(value);
    return static_cast<std::uint16_t>((exponent + 15) * 1024 + ((value << 10) >> exponent) - 1024);
}

std::string fortranOrder(Phantom const& phantom) {
    std::string bytes;
    for (int x = 0; x < phantom.size[0]; ++x) {
        for (int y = 0; y < phantom.size[1]; ++y) {
            for (int z = 0; z < phantom.size[2]; ++z) {
                bytes += numberBytes(phantom.at(x, y, z));
            }
        }
    }
    return bytes;
}

std::string rows(Phantom const& phantom, bool isBigEndian) {
    auto const bytes = voxelBytes(phantom, isBigEndian);
    return {bytes.begin(), bytes.end()};
}

std::string halves(Phantom const& phantom) {
    std::string bytes;
    for (std::int16_t const value : phantom.values) {
        bytes += numberBytes(halfBits(value / 2));
    }
    return bytes;
}

template <typename MakeVoxels>
TestFormat format(std::string const& name, int version, std::string const& descr, bool isFortranOrder,
                  MakeVoxels const& makeVoxels) {
    TestFormat result{name, "a.npy", [=](Phantom const& phantom, fs::path const& folder) {
                          writeFile(folder / "a.npy",
                                    npyHeader(version, npyDictionary(descr, isFortranOrder, shapeOf(phantom))) +
                                        makeVoxels(phantom));
                      }};
    result.hasSpacing = false;
    result.hasOrigin = false;
    result.hasAxes = false;
    return result;
}

} // namespace

std::vector<TestFormat> npyFormats() {
    auto const little = [](Phantom const& phantom) { return rows(phantom, /*isBigEndian=*/false); };
    auto const big = [](Phantom const& phantom) { return rows(phantom, /*isBigEndian=*/true); };
    TestFormat half = format("NpyHalf", 1, "<f2", /*isFortranOrder=*/false, halves);
    half.divisor = 2;
    return {format("Npy", 1, "<i2", /*isFortranOrder=*/false, little),
            format("NpyBigEndian", 2, ">i2", /*isFortranOrder=*/false, big),
            format("NpyFortran", 3, "<i2", /*isFortranOrder=*/true, fortranOrder), half};
}
