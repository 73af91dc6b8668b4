// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace tamo::volume {

/// Returns a text from a file for people: in quotes, in one line, as UTF-8 whatever the file holds, and cut behind 60
/// bytes. A question mark stands for each byte that cannot be shown.
std::string quoted(std::string const& text);

} // namespace tamo::volume
