// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace tamo::tool {

/// The largest number of voxels along an axis.
inline constexpr int kMostVoxels = std::numeric_limits<int>::max();

/// Returns words as a sentence lists them: "a, b or c". There is at least one.
std::string alternatives(std::vector<std::string> const& words);

// Readers of option values. All of them take the whole text and throw `UsageError` naming `option` and what was
// expected.

double parseNumber(std::string const& option, std::string const& text);
/// Reads a whole number from `least` to `most`.
std::int64_t parseWhole(std::string const& option, std::string const& text, std::int64_t least, std::int64_t most);
/// Reads exactly `count` finite numbers with `separator` between them; `expected` describes the value.
std::vector<double> parseNumbers(std::string const& option, std::string const& text, char separator, std::size_t count,
                                 std::string const& expected);
/// As above, for whole numbers from `least` to `most`.
std::vector<int> parseWholes(std::string const& option, std::string const& text, char separator, std::size_t count,
                             int least, int most, std::string const& expected);

} // namespace tamo::tool
