// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace tamo::volume {

/// Turns a text of a file into at most 64 characters of UTF-8 on one line. What cannot be shown becomes a question
/// mark, such as letters of national character sets other than Latin 1 and UTF-8.
std::string shownText(std::string const& text, std::string const& characterSet);

/// Writes a number with at most six digits, in no one's locale: "1.25".
std::string shownNumber(double number);

/// Writes a number with as many digits as tell it from all others, likewise: "0.1".
std::string exactNumber(double number);

} // namespace tamo::volume
