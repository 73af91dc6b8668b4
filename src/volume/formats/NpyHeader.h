// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tamo::volume {

/// What the header of a `.npy` file says.
struct NpyHeader {
    /// The type as NumPy spells it, such as "<i2"; empty for one of several fields.
    std::string descr;
    /// Whether the first index is the fastest, rather than the last.
    bool isFortranOrder = false;
    /// The numbers of values along the array's axes, none of them negative.
    std::vector<std::int64_t> shape;
    /// Where the values begin.
    std::uint64_t start = 0;
};

/// Reads the header of a file of the versions 1 to 3. Throws `Error` for one that is not exactly what NumPy writes: a
/// dictionary of "descr", "fortran_order" and "shape", each once. Nothing of it is ever run.
NpyHeader readNpyHeader(std::filesystem::path const& path);

} // namespace tamo::volume
