// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NiftiBytes.h"

#include "support/files/fileContent.h"

#include <cmath>

NiftiBytes::NiftiBytes(int version, bool isBigEndian, std::vector<std::int64_t> const& sides)
    : _bytes(version == 2 ? 540 : 348, '\0'), _isWide(version == 2), _isBigEndian(isBigEndian) {
    putWhole(0, 4, 0, 4, static_cast<std::int64_t>(_bytes.size()));
    if (version > 0) {
        setMagic("n+");
    }
    setDimension(0, static_cast<std::int64_t>(sides.size()));
    for (std::size_t i = 0; i < sides.size(); ++i) {
        setDimension(static_cast<int>(i) + 1, sides[i]);
    }
    for (int i = 0; i < 4; ++i) {
        setPixdim(i, i > 0 ? i : 1);
    }
    setType(/*datatype=*/4, /*bitpix=*/16);
    setVoxelOffset(version == 0 ? 0 : static_cast<double>(_bytes.size()) + 4);
}

void NiftiBytes::setMagic(std::string const& magic) {
    std::string const full =
        _isWide ? magic + "2" + std::string("\0\r\n\x1A\n", 5) : magic + "1" + std::string(1, '\0');
    _bytes.replace(_isWide ? 4 : 344, full.size(), full);
}

void NiftiBytes::setDimension(int index, std::int64_t side) {
    auto const i = static_cast<std::size_t>(index);
    putWhole(40 + 2 * i, 2, 16 + 8 * i, 8, side);
}

void NiftiBytes::setType(int datatype, int bitpix) {
    putWhole(70, 2, 12, 2, datatype);
    putWhole(72, 2, 14, 2, bitpix);
}

void NiftiBytes::setPixdim(int index, double distance) {
    auto const i = static_cast<std::size_t>(index);
    putReal(76 + 4 * i, 104 + 8 * i, distance);
}

void NiftiBytes::setVoxelOffset(double offset) {
    if (_isWide) {
        putWhole(0, 0, 168, 8, static_cast<std::int64_t>(offset));
    } else {
        putReal(108, 0, offset);
    }
}

void NiftiBytes::setScale(double slope, double intercept) {
    putReal(112, 176, slope);
    putReal(116, 184, intercept);
}

void NiftiBytes::setUnits(int units) { putWhole(123, 1, 500, 4, units); }

void NiftiBytes::setIntent(int code) { putWhole(68, 2, 504, 4, code); }

void NiftiBytes::setSform(int code, std::array<std::array<double, 4>, 3> const& rows) {
    putWhole(254, 2, 348, 4, code);
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t i = 0; i < 4; ++i) {
            putReal(280 + 16 * row + 4 * i, 400 + 32 * row + 8 * i, rows[row][i]);
        }
    }
}

void NiftiBytes::setQform(int code, std::array<double, 3> const& quaternion, std::array<double, 3> const& offset) {
    putWhole(252, 2, 344, 4, code);
    for (std::size_t i = 0; i < 3; ++i) {
        putReal(256 + 4 * i, 352 + 8 * i, quaternion[i]);
        putReal(268 + 4 * i, 376 + 8 * i, offset[i]);
    }
}

void NiftiBytes::putWhole(std::size_t at1, std::size_t bytes1, std::size_t at2, std::size_t bytes2,
                          std::int64_t value) {
    std::size_t const bytes = _isWide ? bytes2 : bytes1;
    std::string const little = numberBytes(value).substr(0, bytes);
    _bytes.replace(_isWide ? at2 : at1, bytes, _isBigEndian ? std::string(little.rbegin(), little.rend()) : little);
}

void NiftiBytes::putReal(std::size_t at1, std::size_t at2, double value) {
    std::string const bytes =
        _isWide ? numberBytes(value, _isBigEndian) : numberBytes(static_cast<float>(value), _isBigEndian);
    _bytes.replace(_isWide ? at2 : at1, bytes.size(), bytes);
}

std::array<std::array<double, 4>, 3> sformOf(Phantom const& phantom) {
    std::array<std::array<double, 4>, 3> rows{};
    for (std::size_t row = 0; row < 3; ++row) {
        double const sign = row < 2 ? -1 : 1;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            rows[row][axis] = sign * phantom.axes[axis][row] * phantom.spacing[axis];
        }
        rows[row][3] = sign * phantom.origin[row];
    }
    return rows;
}

std::array<double, 3> quaternionOf(std::array<std::array<double, 4>, 3> const& rotation) {
    auto const& r = rotation;
    // Turns by half a circle, where this is 0, do not occur here.
    double const a = std::sqrt(1 + r[0][0] + r[1][1] + r[2][2]) / 2;
    return {(r[2][1] - r[1][2]) / (4 * a), (r[0][2] - r[2][0]) / (4 * a), (r[1][0] - r[0][1]) / (4 * a)};
}
