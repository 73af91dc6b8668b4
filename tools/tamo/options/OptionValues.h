// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>
#include <vector>

namespace tamo::tool {

// Readers of option values. All of them take the whole text and throw `UsageError` naming `option` and what was
// expected.

double parseNumber(std::string const& option, std::string const& text);
/// Reads a whole number of at least `least` and at most 2^31 - 1.
int parseWhole(std::string const& option, std::string const& text, int least);
/// Reads exactly `count` finite numbers with `separator` between them; `expected` describes the value.
std::vector<double> parseNumbers(std::string const& option, std::string const& text, char separator, std::size_t count,
                                 std::string const& expected);
/// As above, for whole numbers of at least `least`.
std::vector<int> parseWholes(std::string const& option, std::string const& text, char separator, std::size_t count,
                             int least, std::string const& expected);

} // namespace tamo::tool
