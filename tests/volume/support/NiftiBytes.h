// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Phantom.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// Builds the header of a NIfTI file byte by byte: one of 16-bit numbers without matrices, which the setters change.
class NiftiBytes {
  public:
    /// `version` is 1, 2, or 0 for Analyze 7.5.
    NiftiBytes(int version, bool isBigEndian, std::vector<std::int64_t> const& sides);

    void setMagic(std::string const& magic);
    void setDimension(int index, std::int64_t side);
    void setType(int datatype, int bitpix);
    void setPixdim(int index, double distance);
    void setVoxelOffset(double offset);
    void setScale(double slope, double intercept);
    void setUnits(int units);
    void setIntent(int code);
    void setSform(int code, std::array<std::array<double, 4>, 3> const& rows);
    void setQform(int code, std::array<double, 3> const& quaternion, std::array<double, 3> const& offset);

    /// Returns the header with `gap` zeros behind it, which hold extensions.
    [[nodiscard]] std::string bytes(std::size_t gap = 0) const { return _bytes + std::string(gap, '\0'); }

  private:
    void putWhole(std::size_t at1, std::size_t bytes1, std::size_t at2, std::size_t bytes2, std::int64_t value);
    void putReal(std::size_t at1, std::size_t at2, double value);

    std::string _bytes;
    bool _isWide;
    bool _isBigEndian;
};

/// Returns the sform of a phantom, in RAS.
std::array<std::array<double, 4>, 3> sformOf(Phantom const& phantom);

/// Returns b, c and d of the quaternion that turns as the columns of a rotation do.
std::array<double, 3> quaternionOf(std::array<std::array<double, 4>, 3> const& rotation);
